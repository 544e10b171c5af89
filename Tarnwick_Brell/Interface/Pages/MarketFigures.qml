pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// Figures of a quote beside each other, as many as find room in lines.
Flow {
    id: list

    required property var figures

    spacing: PageSizes.columnGap
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Figures")

    Repeater {
        model: list.figures

        Row {
            id: figure

            required property string label
            required property string value

            spacing: Theme.badgeGap
            Accessible.role: Accessible.ListItem
            Accessible.name: label + ", " + value

            DeskText {
                type: DeskText.Secondary
                text: figure.label
                color: Theme.text3
                Accessible.ignored: true
            }
            DeskText {
                type: DeskText.SecondaryMedium
                text: figure.value
                Accessible.ignored: true
            }
        }
    }
}
