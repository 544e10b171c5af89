pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// One of a page's revisions, chosen in a menu.
Chip {
    id: chip

    required property list<string> choices
    required property int current
    required property string label

    signal chosen(place: int)

    text: current >= 0 && current < choices.length ? qsTr("%1: %2").arg(label).arg(choices[current]) : label
    onClicked: menu.popup(chip, 0, chip.height + Theme.space1)
    Accessible.name: text

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
