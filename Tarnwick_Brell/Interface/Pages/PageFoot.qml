import QtQuick
import TarnwickBrell.Controls

/// A quiet sentence below a page's table: what its figures are.
Item {
    id: foot

    required property string text

    height: Theme.bar

    Hairline {
        width: parent.width
    }
    DeskText {
        x: Theme.gridPadding
        width: parent.width - 2 * x
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Meta
        color: Theme.text3
        text: foot.text
    }
}
