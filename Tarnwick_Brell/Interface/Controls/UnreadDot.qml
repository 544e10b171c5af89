import QtQuick

/// Says that a story has not been read.
Rectangle {
    implicitWidth: Theme.unreadDot
    implicitHeight: Theme.unreadDot
    radius: Theme.unreadDot / 2
    color: Theme.accentText
    Accessible.role: Accessible.Indicator
    Accessible.name: qsTr("Unread")
}
