pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What can be done with a place of the sidebar.
DeskMenu {
    id: menu

    required property PlaceMenu places

    /// Opens beside the item when anything can be done with it.
    function openFor(item: Item, key: string, x: real, y: real) {
        if (places.show(key))
            popup(item, x, y);
    }

    Repeater {
        model: menu.places.rows

        DeskMenuItem {
            required property int index
            required property string title

            required symbol
            text: title
            onTriggered: menu.places.run(index)
        }
    }
}
