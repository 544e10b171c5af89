pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The moves of the chart's range, each with the reason that was reported or the word that none
/// was. Enter and a second click open the story.
FocusScope {
    id: moves

    required property MarketsPageModel content

    function show(line: int) {
        list.choose(line);
        list.forceActiveFocus(Qt.MouseFocusReason);
    }

    Item {
        id: header

        width: parent.width
        height: Theme.listHeader

        DeskText {
            id: title
            x: Theme.gridPadding
            width: Math.min(implicitWidth, add.x - x)
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.BaseStrong
            text: qsTr("Moves and what was reported")
            Accessible.role: Accessible.Heading
        }
        DeskText {
            anchors.left: title.right
            anchors.leftMargin: Theme.space2
            anchors.right: add.left
            anchors.rightMargin: Theme.space2
            anchors.baseline: title.baseline
            type: DeskText.Secondary
            color: Theme.text3
            text: moves.content.movesFact
        }
        DeskButton {
            id: add
            anchors.right: parent.right
            anchors.rightMargin: Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            symbol: "bell"
            text: qsTr("New price rule")
            onClicked: moves.content.newRule()
        }
        Hairline {
            x: Theme.gridPadding
            anchors.bottom: parent.bottom
            width: parent.width - 2 * x
        }
    }
    PageMessage {
        anchors.verticalCenterOffset: header.height / 2
        text: moves.content.movesMessage
    }
    TableList {
        id: list

        anchors.fill: parent
        anchors.topMargin: header.height
        label: qsTr("Moves of the price")
        model: moves.content.moves
        onOpened: row => moves.content.openMove(row)

        delegate: MarketMoveLine {
            width: list.width
            isCurrent: index === list.currentIndex
            listFocused: list.activeFocus
            onChosen: moves.show(index)
            onOpened: moves.content.openMove(index)
        }
    }
}
