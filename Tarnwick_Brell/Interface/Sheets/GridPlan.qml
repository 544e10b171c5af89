pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// The panels of a newsroom to be, small, where they will lie.
Rectangle {
    id: plan

    required property var panels
    required property int rowsUsed

    readonly property real columnStep: (width - Theme.space1) / Theme.gridColumns
    readonly property real rowStep: (height - Theme.space1) / Math.max(1, rowsUsed)

    radius: Theme.radiusControl
    color: Theme.canvas
    border.width: Theme.line
    border.color: Theme.hairline
    Accessible.role: Accessible.List
    Accessible.name: qsTr("The panels of the newsroom")

    Repeater {
        model: plan.panels

        Rectangle {
            id: panel

            required property string title
            required property string symbol
            required property int column
            required property int row
            required property int columns
            required property int rows

            x: Theme.space1 + Math.round(column * plan.columnStep)
            y: Theme.space1 + Math.round(row * plan.rowStep)
            width: Math.round(columns * plan.columnStep) - Theme.space1
            height: Math.round(rows * plan.rowStep) - Theme.space1
            radius: Theme.radiusBadge
            color: Theme.surface
            border.width: Theme.line
            border.color: Theme.hairline
            Accessible.role: Accessible.ListItem
            Accessible.name: title

            Symbol {
                id: icon

                x: Theme.space2
                y: Theme.space1
                visible: panel.width > 2 * x + size
                name: panel.symbol
                size: Theme.iconInMeta
            }
            DeskText {
                x: icon.x + icon.width + Theme.space1
                y: Theme.space1 - Theme.step2
                width: panel.width - x - Theme.space1
                visible: width > Theme.space5
                type: DeskText.Meta
                color: Theme.text2
                text: panel.title
                Accessible.ignored: true
            }
        }
    }
}
