pragma ComponentBehavior: Bound

import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What is reported and rumored, and what Apple said about it.
StoryPanelList {
    id: panel

    required property QueryPanelModel content

    name: qsTr("Claims")
    origin: content
    model: content.rows
    onOpened: index => content.open(index)
    delegate: StoryPanelRow {
        id: row

        required storyID
        required property string outlet
        required property string age
        required property string title
        required property bool isRead
        required property int firmness
        required property string stateLabel
        required property string standing

        topPadding: Theme.compactPaddingTop
        bottomPadding: Theme.compactPaddingBottom
        contentItem: Column {
            spacing: Theme.step2

            StoryMetaLine {
                width: parent.width
                source: row.outlet
                sourcing: row.firmness
                sourcingLabel: row.stateLabel
                age: row.age
                isRead: row.isRead
            }
            PanelTitle {
                width: parent.width
                text: row.title
                isRead: row.isRead
            }
            DeskText {
                width: parent.width
                type: DeskText.Meta
                text: row.standing
                color: Theme.text3
            }
        }
    }
}
