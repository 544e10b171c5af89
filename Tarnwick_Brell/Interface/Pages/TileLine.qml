import QtQuick
import TarnwickBrell.Controls

/// A build at the left, the days since it came at the right.
Item {
    id: line

    required property string build
    required property string age

    implicitHeight: left.height

    DeskText {
        id: left

        width: parent.width - right.width - Theme.space1
        type: DeskText.Meta
        text: line.build
        color: Theme.text3
        Accessible.ignored: true
    }
    DeskText {
        id: right

        anchors.right: parent.right
        type: DeskText.Meta
        text: line.age
        color: Theme.text3
        Accessible.ignored: true
    }
}
