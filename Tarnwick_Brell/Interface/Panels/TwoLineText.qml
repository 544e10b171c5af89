import QtQuick
import TarnwickBrell.Controls

/// A cell of a table with a quiet second line.
Column {
    required property string first
    required property string second
    property color ink: Theme.text1

    DeskText {
        width: parent.width
        type: DeskText.Secondary
        lineHeight: Theme.scaled(15)
        text: parent.first
        color: parent.ink
        Accessible.ignored: true
    }
    DeskText {
        width: parent.width
        visible: text
        type: DeskText.Meta
        lineHeight: Theme.scaled(13)
        text: parent.second
        color: Theme.text3
        Accessible.ignored: true
    }
}
