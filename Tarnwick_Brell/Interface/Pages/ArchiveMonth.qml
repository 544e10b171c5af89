pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A month of days: the more stories, the fuller the accent.
Column {
    id: month

    required property int index
    required property string title
    required property int offset
    required property list<int> levels
    required property int firstChosen
    required property int lastChosen

    required property ArchivePageModel content
    property bool focused: false

    readonly property int pitch: PageSizes.calendarCell + PageSizes.calendarGap
    readonly property int daysOfWeek: 7

    spacing: Theme.space1

    DeskText {
        type: DeskText.Meta
        text: month.title
        color: Theme.text2
    }
    Item {
        id: cells

        width: month.daysOfWeek * month.pitch
        height: Math.ceil((month.offset + month.levels.length) / month.daysOfWeek) * month.pitch

        Repeater {
            model: month.levels.length

            Rectangle {
                id: cell

                required property int index
                readonly property int level: month.levels[index]
                readonly property bool chosen: index >= month.firstChosen && index <= month.lastChosen && month.firstChosen >= 0

                x: ((month.offset + index) % month.daysOfWeek) * month.pitch
                y: Math.floor((month.offset + index) / month.daysOfWeek) * month.pitch
                width: PageSizes.calendarCell
                height: PageSizes.calendarCell
                radius: Theme.radiusBar
                color: level < 0 ? "transparent" : Theme.press
                border.width: chosen ? Theme.focusRing : level < 0 ? Theme.line : 0
                border.color: chosen ? (month.focused ? Theme.accent : Theme.edge) : Theme.hairline
                Accessible.role: Accessible.Cell
                Accessible.name: month.content.dayText(month.index, index)
                Accessible.selected: chosen

                Rectangle {
                    anchors.fill: parent
                    anchors.margins: cell.chosen ? Theme.focusRing : 0
                    radius: parent.radius
                    visible: cell.level > 0
                    color: Theme.accent
                    opacity: PageSizes.levelOpacities[Math.max(0, cell.level)]
                }
            }
        }
        MouseArea {
            id: pointer

            function dayAt(x: real, y: real): int {
                return Math.floor(y / month.pitch) * month.daysOfWeek + Math.floor(x / month.pitch) - month.offset;
            }

            anchors.fill: parent
            hoverEnabled: true
            onClicked: mouse => {
                const day = dayAt(mouse.x, mouse.y);
                if (day >= 0 && day < month.levels.length)
                    month.content.chooseDay(month.index, day);
            }

            Tip {
                readonly property int day: pointer.dayAt(pointer.mouseX, pointer.mouseY)

                visible: pointer.containsMouse && day >= 0 && day < month.levels.length
                text: month.content.dayText(month.index, day)
            }
        }
    }
}
