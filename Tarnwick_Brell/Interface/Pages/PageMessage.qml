import QtQuick
import TarnwickBrell.Controls

/// A sentence in the place of rows that a filter or an empty history leaves out.
DeskText {
    anchors.centerIn: parent
    width: parent.width - 2 * Theme.gridPadding
    horizontalAlignment: Text.AlignHCenter
    visible: text
    lines: 3
    type: DeskText.Secondary
    color: Theme.text3
}
