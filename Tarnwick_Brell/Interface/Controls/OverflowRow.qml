import QtQuick

/// Controls in a row which is drawn sideways where it has too little room, as with large text. The
/// control with the focus comes into sight.
Flickable {
    id: strip

    default property alias controls: row.data
    readonly property Item focused: Window.activeFocusItem

    function reveal(item: Item) {
        let parent = item;
        while (parent && parent !== row)
            parent = parent.parent;
        if (!parent)
            return;
        const x = item.mapToItem(row, 0, 0).x;
        if (x < contentX)
            contentX = x;
        else if (x + item.width > contentX + width)
            contentX = Math.min(x, x + item.width - width);
    }

    onFocusedChanged: reveal(focused)

    implicitWidth: row.width
    implicitHeight: row.height
    contentWidth: row.width
    contentHeight: height
    clip: contentWidth > width
    interactive: contentWidth > width
    flickableDirection: Flickable.HorizontalFlick
    boundsBehavior: Flickable.StopAtBounds

    Row {
        id: row

        y: Math.round((strip.height - height) / 2)
        spacing: Theme.space2
    }
}
