import QtQuick
import TarnwickBrell.Controls

/// Something that is on or off, with what it means at the right.
Item {
    id: option

    signal toggled

    property alias text: box.text
    property alias checked: box.checked
    property string hint

    implicitHeight: Theme.bar

    Hairline {
        width: parent.width
    }
    DeskCheckBox {
        id: box

        anchors.verticalCenter: parent.verticalCenter
        Accessible.description: option.hint
        onToggled: option.toggled()
    }
    DeskText {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, parent.width - box.width - Theme.space3)
        type: DeskText.Secondary
        color: Theme.text3
        text: option.hint
        Accessible.ignored: true
    }
}
