import QtQuick
import TarnwickBrell.Controls

/// Something that the user keeps, or that a search found: a title and a quieter line, with what the
/// search hit marked. `buttons` stand at its right.
TableRow {
    id: line

    required property int index
    required property string symbol
    required property var title
    required property var detail
    required property string when
    required property string problem
    property alias buttons: buttonRow.data

    implicitHeight: PageSizes.logRow
    start: PageSizes.keptText

    contentItem: Item {
        Symbol {
            id: icon

            x: Theme.gridPadding
            anchors.verticalCenter: title.verticalCenter
            name: line.symbol
            size: Theme.iconInHeader
            color: line.problem ? Theme.red : Theme.text3
        }
        MarkedText {
            id: title

            x: PageSizes.keptText
            y: Theme.space2
            width: when.x - x - Theme.space2
            type: DeskText.BaseMedium
            parts: line.title
        }
        DeskText {
            id: when

            anchors.right: buttonRow.left
            anchors.rightMargin: buttonRow.width > 0 ? Theme.space3 : 0
            anchors.verticalCenter: title.verticalCenter
            type: DeskText.Meta
            color: Theme.text3
            text: line.when
            Accessible.ignored: true
        }
        MarkedText {
            x: title.x
            anchors.top: title.bottom
            width: title.width
            visible: !line.problem
            type: DeskText.Secondary
            ink: Theme.text2
            parts: line.detail
        }
        DeskText {
            x: title.x
            anchors.top: title.bottom
            width: title.width
            visible: line.problem
            type: DeskText.Secondary
            color: Theme.red
            text: line.problem
            Accessible.ignored: true
        }
        Row {
            id: buttonRow

            anchors.right: parent.right
            anchors.rightMargin: Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
