pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Chooses the shares that the chart compares.
Chip {
    id: chip

    required property MarketsPageModel content

    text: content.comparison
    active: content.isComparing
    onClicked: menu.popup(chip, 0, chip.height + Theme.space1)
    onCleared: content.compareNothing()

    DeskMenu {
        id: menu

        Repeater {
            model: chip.content.board

            delegate: DeskMenuItem {
                required property string symbol
                required property string name
                required property bool isCharted
                required property bool isCompared
                required property int index

                text: qsTr("%1 (%2)").arg(name).arg(symbol)
                enabled: !isCharted
                checkable: true
                checked: isCompared
                onTriggered: chip.content.compareRow(index)
            }
        }
    }
}
