import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A service with its days.
TableRow {
    id: line

    required property StatusRow row

    spokenText: line.row.spokenText
    listFocused: line.row.listFocused
    isCurrent: line.row.isCurrent
    ground: line.row.ground
    onChosen: line.row.chosen()

    contentItem: Item {
        StatusMark {
            id: mark

            x: line.row.columns.nameX
            anchors.verticalCenter: parent.verticalCenter
            status: line.row.isOld ? StatusMark.Never
                  : line.row.isUp ? StatusMark.Up
                  : line.row.level === ProblemLevel.Outage ? StatusMark.Outage
                  : line.row.level === ProblemLevel.Maintenance ? StatusMark.Maintenance : StatusMark.Issue
            Accessible.ignored: true
        }
        DeskText {
            x: mark.x + mark.width + Theme.space2
            width: line.row.columns.nameX + line.row.columns.nameWidth - x
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.SecondaryMedium
            text: line.row.title
            color: line.row.ink
            Accessible.ignored: true
        }
        DayCells {
            x: line.row.columns.cellsX
            anchors.verticalCenter: parent.verticalCenter
            days: line.row.days
            most: line.row.columns.days
            reading: line.row.reading
            readingText: line.row.readingText
            label: qsTr("Days of %1").arg(line.row.title)
            pale: line.row.isOld
            onPointed: day => line.row.pointed = day
        }
        DeskText {
            x: line.row.columns.shareX
            width: PageSizes.shareColumn
            visible: line.row.columns.hasShare
            anchors.verticalCenter: parent.verticalCenter
            horizontalAlignment: Text.AlignRight
            type: DeskText.Secondary
            text: line.row.share
            color: Theme.text2
            Accessible.ignored: true
        }
        Badge {
            id: badge

            x: line.row.columns.lastX
            width: visible ? implicitWidth : 0
            anchors.verticalCenter: parent.verticalCenter
            visible: !line.row.isUp
            kind: line.row.level === ProblemLevel.Outage ? Badge.Outage
                : line.row.level === ProblemLevel.Maintenance ? Badge.Maintenance : Badge.Issue
            text: line.row.levelLabel
            Accessible.ignored: true
        }
        DeskText {
            x: badge.x + (badge.visible ? badge.width + Theme.badgeGap : 0)
            width: line.row.columns.lastX + PageSizes.lastIncidentColumn - x
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            text: line.row.last
            color: Theme.text2
            Accessible.ignored: true
        }
    }
}
