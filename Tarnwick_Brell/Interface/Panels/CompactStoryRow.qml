import QtQuick
import TarnwickBrell.Controls

/// A story in a panel: outlet, sourcing and age above, the headline below.
StoryPanelRow {
    id: row

    required property string source
    required property string destination
    required property string kindLabel
    required property int sourcing
    required property string sourcingLabel
    required property string age
    required property string title
    required property bool isRead
    required property bool isSaved

    topPadding: Theme.compactPaddingTop
    bottomPadding: Theme.compactPaddingBottom
    contentItem: Column {
        spacing: Theme.step2

        StoryMetaLine {
            width: parent.width
            source: row.source
            destination: row.destination
            kindLabel: row.kindLabel
            sourcing: row.sourcing
            sourcingLabel: row.sourcingLabel
            age: row.age
            isRead: row.isRead
            isSaved: row.isSaved
        }
        PanelTitle {
            width: parent.width
            text: row.title
            isRead: row.isRead
        }
    }
}
