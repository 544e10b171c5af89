import QtQuick

/// The name of a key, or of keys pressed together.
Rectangle {
    property alias text: label.text
    property color ink: Theme.text3

    implicitWidth: Math.max(label.implicitWidth + 2 * Theme.badgePadding, implicitHeight)
    implicitHeight: Theme.badge
    radius: Theme.radiusBadge
    color: "transparent"
    border.width: Theme.line
    border.color: ink === Theme.textOnAccent ? Theme.lineOnAccent : Theme.border

    DeskText {
        id: label
        anchors.centerIn: parent
        type: DeskText.Meta
        color: parent.ink
        Accessible.ignored: true
    }
}
