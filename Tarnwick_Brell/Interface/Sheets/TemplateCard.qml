pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// A template to choose, with its grid.
PlainButton {
    id: card

    required property int index
    required property string title
    required property string symbol
    required property string description
    required property bool isChosen
    required property var cells
    required property int rowsUsed
    property bool keyboardHere: false

    signal chosen

    text: title
    focusPolicy: Qt.NoFocus
    onClicked: chosen()
    Accessible.role: Accessible.RadioButton
    Accessible.description: description
    Accessible.checkable: true
    Accessible.checked: isChosen
    background: Rectangle {
        radius: Theme.radiusPanel
        color: card.isChosen ? Theme.accentSoft : card.hovered ? Theme.hover : Theme.surface
        border.width: card.isChosen || card.keyboardHere ? Theme.focusRing : Theme.line
        border.color: card.isChosen || card.keyboardHere ? Theme.accent : Theme.border
    }
    contentItem: Item {
        Item {
            id: grid

            x: Theme.space3
            y: Theme.space3
            width: parent.width - 2 * x
            height: words.y - y - Theme.space2

            Repeater {
                model: card.cells

                Rectangle {
                    required property rect modelData

                    x: modelData.x * grid.width / Theme.gridColumns
                    y: modelData.y * grid.height / card.rowsUsed
                    width: modelData.width * grid.width / Theme.gridColumns - Theme.step3
                    height: modelData.height * grid.height / card.rowsUsed - Theme.step3
                    radius: Theme.radiusBar
                    color: card.isChosen ? Theme.accentLine : Theme.border
                }
            }
        }
        Column {
            id: words

            x: Theme.space3
            y: parent.height - height - Theme.space2
            width: parent.width - 2 * x

            Row {
                spacing: Theme.badgeGap

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: card.symbol
                    size: Theme.iconInHeader
                    color: card.isChosen ? Theme.accentText : Theme.text2
                }
                DeskText {
                    type: DeskText.BaseMedium
                    text: card.title
                    Accessible.ignored: true
                }
            }
            DeskText {
                width: parent.width
                type: DeskText.Meta
                lines: 2
                color: Theme.text3
                text: card.description
                Accessible.ignored: true
            }
        }
    }
}
