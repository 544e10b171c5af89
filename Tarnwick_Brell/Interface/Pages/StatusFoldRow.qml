import QtQuick
import TarnwickBrell.Controls

/// Shows or hides the services without an incident.
PlainButton {
    id: foldButton

    required property StatusRow row

    implicitHeight: Theme.tableRow
    text: foldButton.row.title
    onClicked: foldButton.row.activated()
    Accessible.description: foldButton.row.isOpen ? qsTr("Open") : qsTr("Closed")
    contentItem: Item {
        Symbol {
            id: arrow

            x: Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            name: foldButton.row.isOpen ? "chevron.down" : "chevron.right"
            size: Theme.iconInMeta
        }
        DeskText {
            x: arrow.x + arrow.width + Theme.space2
            width: parent.width - x - Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            text: foldButton.row.title
            color: Theme.text2
            Accessible.ignored: true
        }
    }
    FocusRing {
        control: foldButton
        inside: true
    }
}
