import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A resolved problem.
Item {
    id: row

    required property string service
    required property int level
    required property string levelLabel
    required property string began
    required property string duration
    required property string spokenText

    implicitHeight: Theme.pickerRow
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText

    Hairline {
        width: parent.width
    }
    DeskText {
        id: name
        y: Theme.compactPaddingTop - Theme.step2
        width: Math.min(implicitWidth, badge.visible ? parent.width - badge.width - Theme.space2 : parent.width)
        type: DeskText.SecondaryMedium
        text: row.service
        Accessible.ignored: true
    }
    Badge {
        id: badge
        anchors.left: name.right
        anchors.leftMargin: Theme.space2
        anchors.verticalCenter: name.verticalCenter
        kind: row.level === ProblemLevel.Outage ? Badge.Outage
            : row.level === ProblemLevel.Maintenance ? Badge.Maintenance : Badge.Issue
        text: row.levelLabel
        Accessible.ignored: true
    }
    DeskText {
        anchors.top: name.bottom
        width: parent.width - time.width - Theme.space2
        type: DeskText.Meta
        text: row.began
        color: Theme.text3
        Accessible.ignored: true
    }
    DeskText {
        id: time
        anchors.top: name.bottom
        anchors.right: parent.right
        type: DeskText.Meta
        text: row.duration
        color: Theme.text2
        Accessible.ignored: true
    }
}
