import QtQuick
import TarnwickBrell.Controls

/// Over the window while something that may be dropped is held over it.
Rectangle {
    id: hint

    color: Theme.scrim

    Rectangle {
        anchors.centerIn: parent
        width: Math.min(words.implicitWidth + 2 * Theme.space8, parent.width - 2 * Theme.sheetMargin)
        height: words.implicitHeight + 2 * Theme.space6
        radius: Theme.radiusSheet
        color: Theme.raised
        border.width: Theme.focusRing
        border.color: Theme.accent

        DeskText {
            id: words

            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width - 2 * Theme.space4)
            type: DeskText.BaseMedium
            lines: 3
            text: qsTr("Drop the address of a feed or a site, a list of feeds (OPML) or a newsroom's file")
        }
    }
}
