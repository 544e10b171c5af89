pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// A filter with a menu of few choices, of which the first one filters nothing.
Chip {
    id: chip

    required property list<string> choices
    required property int current
    /// What is chosen, for screen readers.
    required property string label

    signal chosen(place: int)

    text: current > 0 ? choices[current] : label
    active: current > 0
    onClicked: menu.popup(chip, 0, chip.height + Theme.space1)
    onCleared: chosen(0)
    Accessible.name: current > 0 ? qsTr("%1: %2").arg(label).arg(text) : label

    DeskMenu {
        id: menu

        Repeater {
            model: chip.choices

            delegate: DeskMenuItem {
                required property string modelData
                required property int index

                text: modelData
                checkable: true
                checked: index === chip.current
                onTriggered: chip.chosen(index)
            }
        }
    }
}
