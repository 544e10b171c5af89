pragma ComponentBehavior: Bound

import QtQuick
import TarnwickBrell.Controls

/// One line of text with its matched letters emphasised, elided at the right.
Item {
    id: line

    /// A list of records with `text` and `isMatch`.
    property var parts

    implicitWidth: pieces.implicitWidth
    implicitHeight: pieces.implicitHeight
    clip: true

    Row {
        id: pieces

        Repeater {
            model: line.parts

            DeskText {
                required property var modelData

                width: Math.max(0, Math.min(implicitWidth, line.width - x))
                type: modelData.isMatch ? DeskText.BaseStrong : DeskText.Base
                color: modelData.isMatch ? Theme.text1 : Theme.text2
                text: modelData.text
                Accessible.ignored: true
            }
        }
    }
}
