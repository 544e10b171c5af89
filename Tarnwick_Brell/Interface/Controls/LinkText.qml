import QtQuick

/// A button that looks like a link.
PlainButton {
    id: link

    property int type: DeskText.SecondaryMedium
    property color ink: Theme.accentText

    contentItem: Item {
        implicitWidth: label.implicitWidth
        implicitHeight: Theme.control

        DeskText {
            id: label
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, parent.width)
            type: link.type
            text: link.text
            color: link.ink
            Accessible.ignored: true
        }
        Hairline {
            anchors.top: label.bottom
            width: label.width
            visible: link.hovered || link.down
            color: link.ink
        }
    }
    Accessible.role: Accessible.Link

    FocusRing {
        control: link
        around: Theme.radiusBadge
    }
}
