pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What is known of the chosen line of the log, and the wire from an hour before it until an hour
/// after it.
PagePane {
    id: pane

    required property ActivityPageModel content
    readonly property bool hasRow: content.row >= 0

    lead: DeskButton {
        visible: pane.hasRow && (pane.content.chosenLink || pane.content.chosenPlace)
        symbol: "arrow.right"
        text: pane.content.chosenLink ? qsTr("Open at the source") : qsTr("Open the desk’s page")
        onClicked: pane.content.openRow(pane.content.row)
    }
    tools: [
        IconButton {
            visible: pane.hasRow
            symbol: "bell"
            text: qsTr("Tell me about this")
            onClicked: pane.content.alertOnSubject()
        },
        IconButton {
            visible: pane.hasRow && pane.content.chosenLink !== "" && pane.content.chosenPlace !== ""
            symbol: "rectangle.stack"
            text: qsTr("Open the desk’s page")
            onClicked: pane.content.openPlace()
        }
    ]

    PageMessage {
        visible: !pane.hasRow
        text: qsTr("Nothing is selected.")
    }
    TableList {
        id: list

        anchors.fill: parent
        focus: true
        visible: pane.hasRow
        label: qsTr("The wire of that hour")
        model: pane.content.wire
        onOpened: row => pane.content.openWireRow(row)

        head: ActivityHead {
            width: list.width
            content: pane.content
        }
        delegate: ActivityWireLine {
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: pane.content.openWireRow(index)
        }
    }
}
