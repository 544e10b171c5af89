import QtQuick
import TarnwickBrell.Controls

/// How much of a source the archive holds.
Item {
    id: line

    required property string name
    required property double share
    required property string shareText
    required property string figures

    implicitHeight: Theme.tableRow
    Accessible.role: Accessible.StaticText
    Accessible.name: name + ", " + shareText + ", " + figures

    DeskText {
        width: track.x - Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Secondary
        text: line.name
        Accessible.ignored: true
    }
    Rectangle {
        id: track

        anchors.right: value.left
        anchors.verticalCenter: parent.verticalCenter
        width: PageSizes.coverageWidth
        height: PageSizes.coverageBar
        radius: Theme.radiusBar
        color: Theme.press

        Rectangle {
            width: Math.round(parent.width * line.share)
            height: parent.height
            radius: parent.radius
            color: Theme.accent
        }
    }
    DeskText {
        id: value

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: PageSizes.coverageShare
        horizontalAlignment: Text.AlignRight
        type: DeskText.Secondary
        text: line.shareText
        color: Theme.text2
        Accessible.ignored: true
    }
}
