import QtQuick
import QtQuick.Templates as T

/// A tooltip below its item, with the equivalent key.
T.ToolTip {
    id: tip

    property string key

    x: parent ? (parent.width - width) / 2 : 0
    y: parent ? parent.height + Theme.space1 : 0
    implicitWidth: Math.min(implicitContentWidth, Theme.tipMost) + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: Theme.space1
    horizontalPadding: Theme.space2
    verticalPadding: Theme.space1
    delay: Theme.tipDelay
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: Item {
        implicitWidth: label.implicitWidth + (cap.visible ? cap.width + Theme.space2 : 0)
        implicitHeight: label.height

        DeskText {
            id: label
            width: Math.min(implicitWidth, parent.width)
            type: DeskText.Meta
            lines: 4
            text: tip.text
            color: Theme.textOnTip
        }
        KeyCap {
            id: cap
            anchors.right: parent.right
            visible: tip.key
            text: tip.key
            ink: Theme.textOnTip
        }
    }
    background: Rectangle {
        radius: Theme.radiusBadge
        color: Theme.tip
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.fade; easing.type: Easing.OutQuad }
    }
}
