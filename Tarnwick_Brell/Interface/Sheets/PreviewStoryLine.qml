import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// A story that a feed would bring: its title, the labels that it would get and its age.
Item {
    id: line

    required property string title
    required property string kindText
    required property string sourcingText
    required property int sourcing
    required property string age
    required property string spokenText

    implicitHeight: Theme.bar
    Accessible.role: Accessible.StaticText
    Accessible.name: spokenText

    DeskText {
        width: labels.x - Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        text: line.title
        Accessible.ignored: true
    }
    Row {
        id: labels

        anchors.right: age.left
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.badgeGap

        Badge {
            visible: line.kindText !== ""
            text: line.kindText
        }
        SourcingBadge {
            text: line.sourcingText
            sourcing: line.sourcing
        }
    }
    DeskText {
        id: age

        anchors.right: parent.right
        width: Theme.previewAge
        horizontalAlignment: Text.AlignRight
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Meta
        color: Theme.text3
        text: line.age
        Accessible.ignored: true
    }
    Hairline {
        anchors.bottom: parent.bottom
        width: parent.width
    }
}
