import QtQuick

/// What menus, and lists that look like one, stand on.
Rectangle {
    radius: Theme.radiusPanel
    color: Theme.raised
    border.width: Theme.line
    border.color: Theme.hairline

    Shadow { z: -1 }
}
