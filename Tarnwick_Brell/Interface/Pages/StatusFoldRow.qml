import QtQuick
import TarnwickBrell.Controls

/// Shows or hides the services without an incident.
TableRow {
    id: line

    required property StatusRow row

    spokenText: line.row.spokenText
    listFocused: line.row.listFocused
    isCurrent: line.row.isCurrent
    ground: line.row.ground
    hasLine: false
    onChosen: {
        line.row.chosen();
        line.row.activated();
    }
    Accessible.description: line.row.isOpen ? qsTr("Open") : qsTr("Closed")
    contentItem: Item {
        Symbol {
            id: arrow

            x: Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            name: line.row.isOpen ? "chevron.down" : "chevron.right"
            size: Theme.iconInMeta
        }
        DeskText {
            x: arrow.x + arrow.width + Theme.space2
            width: parent.width - x - Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            text: line.row.title
            color: Theme.text2
            Accessible.ignored: true
        }
    }
}
