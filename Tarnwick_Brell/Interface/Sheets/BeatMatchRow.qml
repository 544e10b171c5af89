import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Panels

/// A story that a beat finds.
Item {
    id: row

    required property string outlet
    required property string age
    required property int sourcing
    required property string sourcingLabel
    required property var title
    required property var summary
    required property string spokenText

    implicitHeight: lines.height + 2 * Theme.space2
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText

    Hairline {
        width: parent.width
    }
    Column {
        id: lines

        y: Theme.space2
        width: parent.width
        spacing: Theme.step2

        StoryMetaLine {
            width: parent.width
            source: row.outlet
            sourcing: row.sourcing
            sourcingLabel: row.sourcingLabel
            age: row.age
            isRead: true
        }
        MarkedText {
            width: parent.width
            type: DeskText.BaseMedium
            parts: row.title
        }
        MarkedText {
            width: parent.width
            visible: row.summary.length > 0
            type: DeskText.Secondary
            ink: Theme.text2
            parts: row.summary
        }
    }
}
