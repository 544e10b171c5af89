import QtQuick

/// Covers the row of a list that would be cut at the lower edge, on a display where nothing
/// scrolls.
Rectangle {
    id: cover

    required property ListView list

    readonly property real cut: {
        const bottom = list.contentY + list.height;
        const item = list.contentHeight > list.height ? list.itemAt(0, bottom - 1) : null;
        return item && item.y + item.height > bottom && item.y > list.contentY ? bottom - item.y : 0;
    }

    parent: list
    y: list.height - cut
    z: 1
    width: list.width
    height: cut
    visible: Theme.board && cut > 0
    color: Theme.canvas
}
