import QtQuick
import TarnwickBrell.Controls

/// An outlined note: a heading and a sentence or two.
Rectangle {
    id: note

    required property string title
    required property string text

    implicitHeight: heading.height + sentence.height + 2 * Theme.space3 + Theme.space1
    radius: Theme.radiusControl
    color: "transparent"
    border.width: Theme.line
    border.color: Theme.hairline

    DeskText {
        id: heading

        x: Theme.space3
        y: Theme.space3
        width: parent.width - 2 * x
        type: DeskText.MetaStrong
        color: Theme.text3
        text: note.title
    }
    DeskText {
        id: sentence

        x: Theme.space3
        anchors.top: heading.bottom
        anchors.topMargin: Theme.space1
        width: parent.width - 2 * x
        lines: 8
        type: DeskText.Secondary
        text: note.text
    }
}
