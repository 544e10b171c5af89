import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Panels

/// What the row of a subject shows: how many outlets cover it, how firmly, who was first, and
/// whether it still grows.
Item {
    id: subject

    required property TopStoriesLine line

    UnreadDot {
        x: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        visible: !subject.line.isRead
    }
    DeskText {
        id: count

        y: Theme.rowPaddingTop
        width: Theme.clusterText - Theme.space3
        horizontalAlignment: Text.AlignRight
        type: DeskText.Heading
        text: subject.line.outletCount
        Accessible.ignored: true
    }
    DeskText {
        anchors.top: count.bottom
        width: count.width
        horizontalAlignment: Text.AlignRight
        type: DeskText.Meta
        color: Theme.text3
        text: subject.line.outletLabel
        Accessible.ignored: true
    }
    DeskText {
        id: headline

        x: Theme.clusterText
        y: Theme.rowPaddingTop
        width: age.x - x - Theme.space2
        type: subject.line.isRead ? DeskText.Base : DeskText.BaseStrong
        color: subject.line.isRead ? Theme.text2 : Theme.text1
        text: subject.line.title
        Accessible.ignored: true
    }
    DeskText {
        id: age

        anchors.right: parent.right
        anchors.rightMargin: Theme.rowEnd
        anchors.baseline: headline.baseline
        type: DeskText.Meta
        color: Theme.text3
        text: subject.line.time
        Accessible.ignored: true
    }
    Row {
        x: Theme.clusterText
        anchors.top: headline.bottom
        anchors.topMargin: Theme.step3
        spacing: Theme.badgeGap

        SourcingBadge {
            sourcing: subject.line.sourcing
            text: subject.line.sourcingLabel
        }
        DeskText {
            width: Math.min(implicitWidth, headline.width / 2)
            visible: text
            type: DeskText.SecondaryMedium
            color: Theme.text2
            text: subject.line.outlet
            Accessible.ignored: true
        }
        DeskText {
            width: Math.max(0, Math.min(implicitWidth, growth.x - parent.x - x - Theme.space2))
            type: DeskText.Secondary
            color: Theme.text3
            text: subject.line.lead
            Accessible.ignored: true
        }
    }
    Row {
        id: growth

        anchors.right: age.right
        anchors.top: headline.bottom
        anchors.topMargin: Theme.step3
        spacing: Theme.space1

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: subject.line.grows
            name: "arrow.up"
            size: Theme.iconInMeta
            color: Theme.green
        }
        DeskText {
            type: DeskText.Meta
            color: subject.line.grows ? Theme.green : Theme.text3
            text: subject.line.growth
            Accessible.ignored: true
        }
    }
}
