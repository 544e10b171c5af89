import QtQuick
import TarnwickBrell.Controls

/// A label of the story and the sentence that says why it has it, with a link that corrects it.
Item {
    id: line

    required property string reason
    property string action
    default property alias badge: slot.data

    signal acted

    implicitHeight: visible ? Math.max(Theme.badge, sentence.implicitHeight) + Theme.space1 : 0

    Row {
        id: slot
    }
    DeskText {
        id: sentence

        x: slot.width > 0 ? slot.width + Theme.space2 : 0
        width: Math.min(implicitWidth, parent.width - x - (link.visible ? link.width + Theme.space2 : 0))
        type: DeskText.Secondary
        color: Theme.text2
        lines: 4
        text: line.reason
    }
    LinkText {
        id: link

        anchors.left: sentence.right
        anchors.leftMargin: Theme.space2
        y: (Theme.badge - height) / 2
        visible: line.action !== ""
        text: line.action
        onClicked: line.acted()
    }
}
