import QtQuick
import TarnwickBrell.Controls

/// Something that a rule would have told.
Item {
    id: line

    required property string when
    required property string origin
    required property string badge
    required property var title
    required property string spokenText

    implicitHeight: lines.height + 2 * Theme.space2
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText

    Hairline {
        width: parent.width
    }
    Column {
        id: lines

        y: Theme.space2
        width: parent.width
        spacing: Theme.step2

        Item {
            width: parent.width
            height: Math.max(time.height, mark.height)

            DeskText {
                id: time

                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Meta
                color: Theme.text3
                text: line.when
            }
            DeskText {
                anchors.left: time.right
                anchors.leftMargin: Theme.space3
                anchors.right: mark.left
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.MetaMedium
                color: Theme.text2
                text: line.origin
            }
            Badge {
                id: mark

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                visible: line.badge
                text: line.badge
            }
        }
        MarkedText {
            width: parent.width
            type: DeskText.BaseMedium
            parts: line.title
        }
    }
}
