import QtQuick
import QtQuick.Templates as T

/// A check box with its label.
T.CheckBox {
    id: box

    implicitWidth: Theme.tickBox + Theme.space2 + implicitContentWidth
    implicitHeight: Theme.control
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    opacity: enabled ? 1 : Theme.disabledOpacity
    leftPadding: Theme.tickBox + Theme.space2
    contentItem: DeskText {
        type: DeskText.Secondary
        text: box.text
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    indicator: Rectangle {
        y: (box.height - height) / 2
        implicitWidth: Theme.tickBox
        implicitHeight: Theme.tickBox
        radius: Theme.radiusBadge
        color: box.checked ? Theme.accent : box.down ? Theme.press : box.hovered ? Theme.hover : Theme.surface
        border.width: box.checked ? 0 : Theme.line
        border.color: Theme.edge

        Symbol {
            anchors.centerIn: parent
            visible: box.checked
            name: "checkmark"
            size: Theme.iconInMeta
            color: Theme.textOnAccent
        }
        FocusRing {
            control: box
            around: Theme.radiusBadge
        }
    }
    Accessible.name: text
    Keys.onReturnPressed: tick()
    Keys.onEnterPressed: tick()

    function tick() {
        toggle();
        toggled();
        clicked();
    }
}
