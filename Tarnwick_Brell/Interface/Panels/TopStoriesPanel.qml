pragma ComponentBehavior: Bound

import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// News by the number of outlets that cover it.
StoryPanelList {
    id: panel

    required property QueryPanelModel content

    name: qsTr("Top stories")
    origin: content
    model: content.rows
    onOpened: index => content.open(index)
    delegate: StoryPanelRow {
        id: row

        required storyID
        required property string outletCount
        required property string title
        required property bool isRead
        required property int sourcing
        required property string sourcingLabel
        required property string outlet
        required property string lead

        topPadding: Theme.space3
        implicitHeight: Theme.topStoriesRow
        contentItem: Item {
            DeskText {
                id: count
                y: (Theme.panelLine - height) / 2
                type: DeskText.Heading
                text: row.outletCount
            }
            DeskText {
                id: outlets
                anchors.top: count.bottom
                type: DeskText.Meta
                text: qsTr("outlets")
                color: Theme.text3
            }
            PanelTitle {
                id: headline
                x: outlets.width + Theme.space4
                width: parent.width - x
                lines: 1
                text: row.title
                isRead: row.isRead
            }
            Row {
                anchors.top: headline.bottom
                anchors.topMargin: Theme.step3
                x: headline.x
                spacing: Theme.badgeGap

                SourcingBadge {
                    id: badge
                    sourcing: row.sourcing
                    text: row.sourcingLabel
                }
                DeskText {
                    id: first
                    width: Math.min(implicitWidth, headline.width / 2)
                    type: DeskText.SecondaryMedium
                    text: row.outlet
                    color: Theme.text2
                }
                DeskText {
                    width: Math.min(implicitWidth, headline.width - x)
                    leftPadding: Theme.step2 - parent.spacing + Theme.step1
                    type: DeskText.Secondary
                    text: row.lead
                    color: Theme.text3
                }
            }
        }
    }
}
