import QtQuick

/// A button with only an icon. Its `text` is for screen readers and the tooltip.
PlainButton {
    id: button

    required property string symbol
    property int size: Theme.icon
    property color ink: checked ? Theme.accentText : Theme.text2

    tip: text
    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: button.symbol
            size: button.size
            color: button.ink
        }
    }
    background: Rectangle {
        implicitWidth: Theme.control
        implicitHeight: Theme.control
        radius: Theme.radiusControl
        color: button.down || button.hovered ? Theme.press : "transparent"
    }
    Accessible.checkable: checkable
    Accessible.checked: checked

    FocusRing { control: button }
}
