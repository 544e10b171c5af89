import QtQuick
import TarnwickBrell.Controls

/// A label of the story and the sentence that says why it has it.
Item {
    id: line

    required property string reason
    default property alias badge: slot.data

    implicitHeight: visible ? Math.max(Theme.badge, sentence.implicitHeight) + Theme.space1 : 0

    Row {
        id: slot
    }
    DeskText {
        id: sentence

        x: slot.width > 0 ? slot.width + Theme.space2 : 0
        width: parent.width - x
        type: DeskText.Secondary
        color: Theme.text2
        lines: 4
        text: line.reason
    }
}
