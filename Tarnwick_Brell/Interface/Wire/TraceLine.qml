import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls

/// An outlet that ran the traced story, below the one it took the story from.
T.ItemDelegate {
    id: row

    required property int depth
    required property string publisher
    required property string title
    required property string when
    required property string reference
    required property string spokenText
    required property bool isThis

    implicitHeight: Theme.tableRow + (reference !== "" ? Theme.tableRow - Theme.space2 : 0)
    leftPadding: depth * Theme.space4
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText
    Keys.onReturnPressed: clicked()

    background: Rectangle {
        radius: Theme.radiusBadge
        color: row.hovered && !row.isThis ? Theme.hover : "transparent"
    }
    contentItem: Item {
        DeskText {
            id: publisherText

            y: (Theme.tableRow - height) / 2
            width: Math.min(implicitWidth, parent.width / 2)
            type: DeskText.SecondaryMedium
            color: row.isThis ? Theme.accentText : Theme.text1
            text: row.publisher
            Accessible.ignored: true
        }
        DeskText {
            anchors.left: publisherText.right
            anchors.leftMargin: Theme.space2
            anchors.right: whenText.left
            anchors.rightMargin: Theme.space2
            y: publisherText.y
            type: DeskText.Secondary
            color: Theme.text2
            text: row.title
            Accessible.ignored: true
        }
        DeskText {
            id: whenText

            anchors.right: parent.right
            y: publisherText.y
            type: DeskText.Meta
            color: Theme.text3
            text: row.when
            Accessible.ignored: true
        }
        DeskText {
            y: Theme.tableRow - Theme.space1
            width: parent.width
            type: DeskText.Meta
            color: Theme.text3
            text: row.reference
            Accessible.ignored: true
        }
    }
    Rectangle {
        anchors.fill: parent
        visible: row.visualFocus
        radius: Theme.radiusBadge
        color: "transparent"
        border.width: Theme.focusRing
        border.color: Theme.accent
    }
}
