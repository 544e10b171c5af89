import QtQuick
import TarnwickBrell.Controls

/// The letter of a move of the price, above the curve where it rose and below where it fell.
PlainButton {
    id: mark

    required property string letter
    required property string spokenText

    implicitWidth: Theme.control
    implicitHeight: Theme.control
    focusPolicy: Qt.NoFocus
    text: spokenText
    background: null
    contentItem: Item {
        Rectangle {
            anchors.centerIn: parent
            width: Math.max(words.implicitWidth + Theme.space1, height)
            height: Theme.badge
            radius: Theme.radiusBadge
            color: mark.down ? Theme.press : mark.hovered ? Theme.hover : Theme.surface
            border.width: Theme.line
            border.color: Theme.border

            DeskText {
                id: words

                anchors.centerIn: parent
                type: DeskText.MetaStrong
                text: mark.letter
                Accessible.ignored: true
            }
        }
    }
}
