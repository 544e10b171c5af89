import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A problem that goes on: Apple's words, since when, whom it affects, when the desk saw it.
Rectangle {
    id: card

    required property string service
    required property int level
    required property string levelLabel
    required property string message
    required property string facts
    required property string duration

    readonly property color ink: level === ProblemLevel.Outage ? Theme.red
        : level === ProblemLevel.Maintenance ? Theme.blue : Theme.amber

    implicitHeight: words.implicitHeight + 2 * Theme.space3
    radius: Theme.radiusPanel
    color: level === ProblemLevel.Outage ? Theme.redSoft
         : level === ProblemLevel.Maintenance ? Theme.blueSoft : Theme.amberSoft
    Accessible.role: Accessible.AlertMessage
    Accessible.name: service + ", " + levelLabel + ", " + message

    Symbol {
        id: mark

        x: Theme.space4
        y: Theme.space3 + (name.height - height) / 2
        name: card.level === ProblemLevel.Maintenance ? "hammer" : "exclamationmark.triangle"
        color: card.ink
    }
    Column {
        id: words

        x: mark.x + mark.width + Theme.space3
        y: Theme.space3
        width: parent.width - x - Theme.space4
        spacing: Theme.space1

        Item {
            width: parent.width
            height: name.height

            DeskText {
                id: name

                width: Math.min(implicitWidth, since.x - badge.width - 2 * Theme.space2)
                type: DeskText.Heading
                text: card.service
                Accessible.ignored: true
            }
            Badge {
                id: badge

                anchors.left: name.right
                anchors.leftMargin: Theme.space2
                anchors.verticalCenter: name.verticalCenter
                softGround: true
                kind: card.level === ProblemLevel.Outage ? Badge.Outage
                    : card.level === ProblemLevel.Maintenance ? Badge.Maintenance : Badge.Issue
                text: card.levelLabel
                Accessible.ignored: true
            }
            DeskText {
                id: since

                anchors.right: parent.right
                anchors.verticalCenter: name.verticalCenter
                type: DeskText.SecondaryMedium
                text: card.duration
            }
        }
        DeskText {
            width: parent.width
            visible: text
            lines: 4
            text: card.message
            Accessible.ignored: true
        }
        DeskText {
            width: parent.width
            visible: text
            type: DeskText.Secondary
            lines: 2
            text: card.facts
            color: Theme.text2
        }
    }
}
