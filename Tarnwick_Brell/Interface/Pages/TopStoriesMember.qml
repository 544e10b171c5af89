import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Panels

/// A story: its time, a point on the line of its subject's timeline, who told it, and by how much
/// after the first.
Item {
    id: member

    required property TopStoriesLine line

    UnreadDot {
        x: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        visible: !member.line.isRead && !member.line.isInTimeline
    }
    DeskText {
        id: time

        x: Theme.clusterText
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(PageSizes.topStoriesTime, implicitWidth)
        type: DeskText.Meta
        color: Theme.text3
        text: member.line.time
        Accessible.ignored: true
    }
    Item {
        id: marks

        anchors.left: time.right
        width: member.line.isInTimeline ? Theme.timelineMark : Theme.space2
        height: parent.height

        Hairline {
            vertical: true
            visible: member.line.isInTimeline
            anchors.horizontalCenter: parent.horizontalCenter
            y: member.line.isTop ? parent.height / 2 : 0
            height: (member.line.isBottom ? parent.height / 2 : parent.height) - y
            color: Theme.border
        }
        Rectangle {
            anchors.centerIn: parent
            visible: member.line.isInTimeline
            width: member.line.isFirst ? Theme.space2 : Theme.markSquare
            height: width
            radius: width / 2
            color: member.line.isFirst ? Theme.text1 : Theme.surface
            border.width: member.line.isFirst ? 0 : Theme.markRing
            border.color: Theme.edge
        }
    }
    DeskText {
        id: outlet

        anchors.left: marks.right
        anchors.verticalCenter: parent.verticalCenter
        width: PageSizes.topStoriesOutlet
        type: member.line.isRead ? DeskText.SecondaryMedium : DeskText.SecondaryStrong
        color: Theme.text1
        text: member.line.outlet
        Accessible.ignored: true
    }
    DeskText {
        anchors.left: outlet.right
        anchors.leftMargin: Theme.space2
        anchors.right: badge.left
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Secondary
        color: Theme.text2
        text: member.line.title
        Accessible.ignored: true
    }
    SourcingBadge {
        id: badge

        anchors.right: lead.left
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        width: visible ? implicitWidth : 0
        sourcing: member.line.sourcing
        text: member.line.sourcingLabel
    }
    DeskText {
        id: lead

        anchors.right: parent.right
        anchors.rightMargin: Theme.rowEnd
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(Theme.ageColumn, implicitWidth)
        horizontalAlignment: Text.AlignRight
        type: member.line.isFirst ? DeskText.MetaStrong : DeskText.Meta
        color: member.line.isFirst ? Theme.text1 : Theme.text3
        text: member.line.lead
        Accessible.ignored: true
    }
}
