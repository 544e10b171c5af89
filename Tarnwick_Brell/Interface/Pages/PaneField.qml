import QtQuick
import TarnwickBrell.Controls

/// A part of a pane under its heading, with a quiet fact at the heading's right.
Column {
    id: part

    required property string title
    property string fact

    spacing: Theme.space1

    Item {
        width: parent.width
        height: heading.height

        DeskText {
            id: heading

            type: DeskText.MetaStrong
            color: Theme.text3
            text: part.title
            Accessible.role: Accessible.Heading
        }
        DeskText {
            anchors.right: parent.right
            width: Math.min(implicitWidth, parent.width - heading.width - Theme.space2)
            type: DeskText.Meta
            color: Theme.text3
            text: part.fact
        }
    }
}
