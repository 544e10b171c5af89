pragma ComponentBehavior: Bound

import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What changed, in sentences with their sources.
StoryPanelList {
    id: panel

    required property QueryPanelModel content

    name: qsTr("Brief")
    origin: content
    model: content.rows
    onOpened: index => content.open(index)
    delegate: StoryPanelRow {
        id: row

        required storyID
        required property string sentence
        required property string sources

        parted: false
        topPadding: Theme.step1
        bottomPadding: Theme.space2
        contentItem: Column {
            spacing: Theme.step1

            DeskText {
                width: parent.width
                lineHeight: Theme.panelLine
                lines: 3
                text: row.sentence
            }
            DeskText {
                width: parent.width
                type: DeskText.Meta
                text: row.sources
                color: Theme.text3
            }
        }
    }
}
