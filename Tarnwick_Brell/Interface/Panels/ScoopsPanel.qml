pragma ComponentBehavior: Bound

import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Which outlet was first, and by how much.
StoryPanelList {
    id: panel

    required property QueryPanelModel content

    name: qsTr("Scoops")
    origin: content
    model: content.rows
    onOpened: index => content.open(index)
    delegate: StoryPanelRow {
        id: row

        required storyID
        required property string title
        required property bool isRead
        required property string outlet
        required property string lead
        required property string age

        topPadding: Theme.space1
        implicitHeight: Theme.scoopsRow
        contentItem: Item {
            PanelTitle {
                id: headline
                width: parent.width
                lines: 1
                text: row.title
                isRead: row.isRead
            }
            DeskText {
                id: first
                anchors.top: headline.bottom
                anchors.topMargin: Theme.step2
                width: Math.min(implicitWidth, (parent.width - ageText.width) / 2)
                type: DeskText.MetaMedium
                text: row.outlet
                color: Theme.text2
            }
            DeskText {
                anchors.left: first.right
                anchors.leftMargin: Theme.space1
                anchors.right: ageText.left
                anchors.baseline: first.baseline
                type: DeskText.Meta
                text: row.lead
                color: Theme.text3
            }
            DeskText {
                id: ageText
                anchors.right: parent.right
                anchors.baseline: first.baseline
                width: Math.max(Theme.ageColumn, implicitWidth)
                horizontalAlignment: Text.AlignRight
                type: DeskText.Meta
                text: row.age
                color: Theme.text3
            }
        }
    }
}
