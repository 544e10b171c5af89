pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// How many stories a beat finds, when, and by which words.
Item {
    id: figures

    required property BeatPreviewModel preview

    implicitHeight: column.height + Theme.space3

    Column {
        id: column

        topPadding: Theme.space3
        width: parent.width
        spacing: Theme.space2

        Item {
            width: parent.width
            height: count.height

            DeskText {
                id: count

                type: DeskText.Title
                text: figures.preview.count
            }
            DeskText {
                anchors.left: count.right
                anchors.leftMargin: Theme.space2
                anchors.right: gain.left
                anchors.rightMargin: Theme.space2
                anchors.baseline: count.baseline
                type: DeskText.Secondary
                color: Theme.text2
                text: figures.preview.rate
            }
            DeskText {
                id: gain

                anchors.right: parent.right
                anchors.baseline: count.baseline
                type: DeskText.SecondaryMedium
                color: Theme.green
                text: figures.preview.gain
            }
        }
        Row {
            id: bars

            readonly property var shares: figures.preview.bars
            readonly property real barWidth: (width - (shares.length - 1) * spacing) / Math.max(1, shares.length)

            width: parent.width
            height: Theme.previewBars
            spacing: Theme.previewBarGap
            Accessible.ignored: true

            Repeater {
                model: bars.shares

                Rectangle {
                    required property real modelData

                    y: bars.height - height
                    width: bars.barWidth
                    height: Math.max(Theme.line, modelData * bars.height)
                    color: Theme.accentLine
                }
            }
        }
        Item {
            width: parent.width
            height: first.height

            DeskText {
                id: first

                type: DeskText.Meta
                color: Theme.text3
                text: figures.preview.firstDay
            }
            DeskText {
                anchors.right: parent.right
                type: DeskText.Meta
                color: Theme.text3
                text: qsTr("Today")
            }
        }
        Flow {
            width: parent.width
            spacing: Theme.badgeGap

            Repeater {
                model: figures.preview.words

                Badge {
                    required property string modelData

                    text: modelData
                }
            }
        }
    }
}
