import QtQuick
import TarnwickBrell.Controls

/// How many consumer or developer services are up.
Item {
    id: line

    required property string text
    required property int status
    property color ink: Theme.text1

    implicitHeight: words.implicitHeight
    visible: text

    StatusMark {
        y: (Theme.scaled(16) - height) / 2
        box: Theme.markBoxSidebar
        status: line.status
        Accessible.ignored: true
    }
    DeskText {
        id: words
        x: Theme.markBoxSidebar + Theme.badgeGap
        width: parent.width - x
        type: DeskText.Secondary
        lines: 2
        text: line.text
        color: line.ink
    }
}
