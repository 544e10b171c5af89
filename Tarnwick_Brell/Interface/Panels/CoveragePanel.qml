pragma ComponentBehavior: Bound

import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Outlets as bars by their number of stories, and how often each was first.
StoryPanelList {
    id: panel

    required property QueryPanelModel content

    name: qsTr("Outlets")
    model: content.rows
    delegate: StoryPanelRow {
        id: row

        required property string outlet
        required property string stories
        required property double fraction
        required property string firsts

        opens: false
        implicitHeight: Theme.tableRow
        contentItem: Item {
            DeskText {
                id: name
                anchors.verticalCenter: parent.verticalCenter
                width: parent.width * 0.38
                type: DeskText.Secondary
                text: row.outlet
            }
            Item {
                anchors.left: name.right
                anchors.right: firstsText.left
                anchors.margins: Theme.space2
                height: parent.height

                Rectangle {
                    anchors.verticalCenter: parent.verticalCenter
                    width: Math.max(Theme.radiusBar, parent.width * row.fraction)
                    height: Theme.space2
                    radius: Theme.radiusBar
                    color: Theme.accentLine
                }
            }
            DeskText {
                id: firstsText
                anchors.right: count.left
                anchors.verticalCenter: parent.verticalCenter
                width: Theme.ageColumn
                horizontalAlignment: Text.AlignRight
                type: DeskText.Meta
                text: row.firsts
                color: Theme.text3
            }
            DeskText {
                id: count
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                width: Theme.space8
                horizontalAlignment: Text.AlignRight
                type: DeskText.SecondaryMedium
                text: row.stories
            }
        }
    }
}
