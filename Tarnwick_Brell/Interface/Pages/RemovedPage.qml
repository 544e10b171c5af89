pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What was removed, each with a button that brings it back.
PageBody {
    id: page

    required property RemovedPageModel content

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
        opens: false
        label: qsTr("Removed")
        model: page.content.rows
        currentIndex: page.content.row
        onCurrentIndexChanged: page.content.row = currentIndex
        onOpened: row => page.content.restoreRow(row)

        delegate: KeptLine {
            id: line

            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            buttons: DeskButton {
                focusPolicy: Qt.NoFocus
                symbol: "arrow.uturn.backward"
                text: qsTr("Restore")
                onClicked: page.content.restoreRow(line.index)
            }
        }
    }
}
