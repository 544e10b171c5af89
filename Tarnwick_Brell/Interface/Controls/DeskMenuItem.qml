import QtQuick
import QtQuick.Templates as T

/// A row of a menu: icon or check mark, text and key. A submenu has an arrow in place of the key.
T.MenuItem {
    id: item

    property string symbol
    property string key

    readonly property color ink: highlighted ? Theme.text1 : Theme.text2

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.control
    horizontalPadding: Theme.space2
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    contentItem: Item {
        implicitWidth: Theme.icon + Theme.space2 + words.implicitWidth
                       + (cap.visible || more.visible ? Theme.space6 + Math.max(cap.width, more.width) : 0)

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: item.checkable ? item.checked ? "checkmark" : "" : item.symbol
            size: Theme.iconInHeader
            color: item.checkable ? Theme.accentText : item.ink
        }
        DeskText {
            id: words
            x: Theme.icon + Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, parent.width - x)
            type: DeskText.Secondary
            text: item.text
            Accessible.ignored: true
        }
        KeyCap {
            id: cap
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            visible: item.key
            text: item.key
        }
        Symbol {
            id: more
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            visible: item.subMenu
            name: "chevron.right"
            size: Theme.iconInMeta
            color: item.ink
        }
    }
    background: Rectangle {
        radius: Theme.radiusBadge
        color: item.highlighted || item.down ? Theme.press : "transparent"
    }
    Accessible.name: text
    Accessible.checkable: checkable
    Accessible.checked: checked
}
