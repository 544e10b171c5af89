import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A day of the log, or an incident.
Item {
    id: entry

    required property bool isDay
    required property string title
    required property int level
    required property string levelLabel
    required property string duration
    required property string message
    required property string times
    required property string spokenText

    implicitHeight: isDay ? Theme.sectionLabel : words.implicitHeight + Theme.space3 + Theme.line
    Accessible.role: isDay ? Accessible.Heading : Accessible.ListItem
    Accessible.name: spokenText

    SectionLabel {
        width: parent.width
        visible: entry.isDay
        text: entry.title
        Accessible.ignored: true
    }
    Column {
        id: words

        x: Theme.gridPadding
        y: Theme.step2
        width: parent.width - 2 * x
        visible: !entry.isDay
        spacing: Theme.step2

        Item {
            width: parent.width
            height: name.height

            DeskText {
                id: name

                width: Math.min(implicitWidth, time.x - badge.width - 2 * Theme.space2)
                type: DeskText.BaseMedium
                text: entry.title
                Accessible.ignored: true
            }
            Badge {
                id: badge

                anchors.left: name.right
                anchors.leftMargin: Theme.space2
                anchors.verticalCenter: name.verticalCenter
                kind: entry.level === ProblemLevel.Outage ? Badge.Outage
                    : entry.level === ProblemLevel.Maintenance ? Badge.Maintenance : Badge.Issue
                text: entry.levelLabel
                Accessible.ignored: true
            }
            DeskText {
                id: time

                anchors.right: parent.right
                anchors.verticalCenter: name.verticalCenter
                type: DeskText.Secondary
                text: entry.duration
                Accessible.ignored: true
            }
        }
        DeskText {
            width: parent.width
            visible: text
            type: DeskText.Secondary
            lines: 3
            text: entry.message
            color: Theme.text2
            Accessible.ignored: true
        }
        DeskText {
            width: parent.width
            type: DeskText.Meta
            lines: 2
            text: entry.times
            color: Theme.text3
            Accessible.ignored: true
        }
    }
    Hairline {
        anchors.bottom: parent.bottom
        x: Theme.gridPadding
        width: parent.width - 2 * x
        visible: !entry.isDay
    }
}
