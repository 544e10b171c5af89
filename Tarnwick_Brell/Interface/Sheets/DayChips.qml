pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls

/// Weekdays, each of which is chosen or not.
Row {
    id: chips

    required property string label
    required property list<string> names
    required property list<bool> days

    signal toggled(day: int)

    spacing: Theme.space1
    Accessible.role: Accessible.Grouping
    Accessible.name: label

    Repeater {
        model: chips.names

        T.AbstractButton {
            id: day

            required property string modelData
            required property int index
            readonly property bool isChosen: chips.days[index] === true

            width: Math.max(Theme.control, name.implicitWidth + Theme.space2)
            height: Theme.control
            hoverEnabled: true
            focusPolicy: Qt.TabFocus
            onClicked: chips.toggled(index)
            contentItem: Item {
                DeskText {
                    id: name

                    anchors.centerIn: parent
                    type: DeskText.SecondaryMedium
                    text: day.modelData
                    color: day.isChosen ? Theme.accentText : Theme.text2
                    Accessible.ignored: true
                }
            }
            background: Rectangle {
                radius: Theme.radiusBadge
                color: day.isChosen ? Theme.accentSoft : day.hovered ? Theme.hover : "transparent"
                border.width: day.isChosen ? 0 : Theme.line
                border.color: Theme.border

                FocusRing {
                    control: day
                }
            }
            Accessible.role: Accessible.CheckBox
            Accessible.name: modelData
            Accessible.checkable: true
            Accessible.checked: isChosen
        }
    }
}
