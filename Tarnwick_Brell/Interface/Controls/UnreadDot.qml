import QtQuick

/// Marks an unread story.
Rectangle {
    implicitWidth: Theme.unreadDot
    implicitHeight: Theme.unreadDot
    radius: Theme.unreadDot / 2
    color: Theme.accentText
    Accessible.role: Accessible.Indicator
    Accessible.name: qsTr("Unread")
}
