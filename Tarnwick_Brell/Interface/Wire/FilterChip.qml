pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A filter with a menu of choices.
Chip {
    id: chip

    required property ChoiceList choices

    text: choices.summary
    active: choices.isActive
    onClicked: menu.popup(chip, 0, chip.height + Theme.space1)
    onCleared: choices.clear()
    Accessible.name: choices.isActive ? qsTr("%1: %2").arg(choices.name).arg(choices.summary) : choices.name

    DeskMenu {
        id: menu

        Repeater {
            model: chip.choices.rows

            DeskMenuItem {
                required property int index
                required property string label
                required property bool isChosen

                text: label
                checkable: true
                checked: isChosen
                onTriggered: chip.choices.toggle(index)
            }
        }
    }
}
