import QtQuick

/// The background of menus and of lists that look like menus.
Rectangle {
    radius: Theme.radiusPanel
    color: Theme.raised
    border.width: Theme.line
    border.color: Theme.hairline

    Shadow { z: -1 }
}
