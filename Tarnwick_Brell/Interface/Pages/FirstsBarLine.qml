import QtQuick
import TarnwickBrell.Controls

/// How often an outlet was first, as a bar.
Item {
    id: line

    required property string outlet
    required property string times
    required property double fraction
    required property string spokenText

    implicitHeight: PageSizes.firstsRow
    Accessible.role: Accessible.StaticText
    Accessible.name: spokenText

    DeskText {
        id: name

        x: Theme.gridPadding
        width: PageSizes.firstsName
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Secondary
        text: line.outlet
        Accessible.ignored: true
    }
    Item {
        anchors.left: name.right
        anchors.right: count.left
        anchors.leftMargin: Theme.space1
        anchors.rightMargin: Theme.space2
        height: parent.height

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.max(Theme.radiusBar, parent.width * line.fraction)
            height: Theme.space2
            radius: Theme.radiusBar
            color: Theme.accentLine
        }
    }
    DeskText {
        id: count

        anchors.right: parent.right
        anchors.rightMargin: Theme.gridPadding
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.space6
        horizontalAlignment: Text.AlignRight
        type: DeskText.SecondaryMedium
        text: line.times
        Accessible.ignored: true
    }
}
