pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Everything that the user has corrected, each with a button that takes it back.
PageBody {
    id: page

    required property CorrectionsPageModel content

    function step(by: int) {
        list.step(by);
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    TableList {
        id: list

        anchors.fill: parent
        focus: true
        label: qsTr("Corrections")
        model: page.content.rows
        currentIndex: page.content.row
        onCurrentIndexChanged: page.content.row = currentIndex
        onOpened: row => page.content.openRow(row)
        Keys.onDeletePressed: page.content.removeRow(currentIndex)
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_Backspace;
            if (event.accepted)
                page.content.removeRow(currentIndex);
            else
                event.accepted = takesKey(event);
        }

        delegate: CorrectionLine {
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: page.content.openRow(index)
            onRemoved: page.content.removeRow(index)
        }
    }
}
