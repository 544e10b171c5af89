pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What can be done with a row of a page's list.
DeskMenu {
    id: menu

    required property RowMenu rowMenu

    function openFor(item: Item, x: real, y: real, facts: var) {
        if (rowMenu.show(facts))
            popup(item, x, y);
    }

    Repeater {
        model: menu.rowMenu.rows

        DeskMenuItem {
            required property int index
            required property string title
            required property string keyText

            required symbol
            text: title
            key: keyText
            onTriggered: menu.rowMenu.run(index)
        }
    }
}
