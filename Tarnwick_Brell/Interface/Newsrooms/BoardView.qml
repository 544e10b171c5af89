pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A newsroom for a display on the wall: nothing to operate, bigger type, a problem over the full
/// width. Nothing scrolls; what does not fit is left out.
FocusScope {
    id: board

    required property BoardModel content

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Board: %1").arg(content.newsroom.title)
    Keys.onPressed: event => {
        switch (event.key) {
        case Qt.Key_Space:
            board.content.toggleHold();
            break;
        case Qt.Key_Left:
            board.content.turn(-1);
            break;
        case Qt.Key_Right:
            board.content.turn(1);
            break;
        case Qt.Key_Escape:
        case Qt.Key_F11:
            board.content.close();
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.canvas
    }
    Item {
        id: picture

        x: Theme.boardMargin + board.content.shift.x
        y: Theme.boardMargin + board.content.shift.y
        width: board.width - 2 * Theme.boardMargin
        height: board.height - 2 * Theme.boardMargin

        BoardHead {
            id: head

            width: parent.width
            content: board.content
        }
        BoardProblem {
            id: problem

            y: head.height + Theme.boardGap
            width: parent.width
            status: board.content.status
            more: board.content.moreProblems
        }
        BoardGrid {
            y: problem.y + (problem.visible ? problem.height + Theme.boardGap : 0)
            width: parent.width
            height: foot.y - y - Theme.boardGap
            newsroom: board.content.newsroom
        }
        BoardFoot {
            id: foot

            y: parent.height - height
            width: parent.width
            content: board.content
        }
    }
    // Over everything: there is nothing to click, and no pointer stands on the wall.
    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.BlankCursor
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
}
