import QtQuick
import TarnwickBrell.Controls

/// A story that may tell the same news.
TableRow {
    id: line

    required property int index
    required property string title
    required property string outlet
    required property string time

    start: Theme.space2
    end: Theme.space2
    ground: Theme.raised
    contentItem: Item {
        DeskText {
            x: Theme.space2
            width: who.x - x - Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            text: line.title
            Accessible.ignored: true
        }
        DeskText {
            id: who

            anchors.right: when.left
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, line.width / 4)
            type: DeskText.MetaMedium
            color: Theme.text2
            text: line.outlet
            Accessible.ignored: true
        }
        DeskText {
            id: when

            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            color: Theme.text3
            text: line.time
            Accessible.ignored: true
        }
    }
}
