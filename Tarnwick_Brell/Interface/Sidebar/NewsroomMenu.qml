import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What can be done with a newsroom of the sidebar.
DeskMenu {
    id: menu

    required property NewsroomActions newsrooms
    property string key
    property Item row: null
    property bool onBoard: true

    signal renameWanted
    signal symbolWanted

    function openFor(item: Item, place: string, x: real, y: real) {
        key = place;
        row = item;
        onBoard = newsrooms.isOnBoard(place);
        popup(item, x, y);
    }

    DeskMenuItem {
        text: qsTr("Rename")
        key: qsTr("F2")
        symbol: "pencil"
        onTriggered: menu.renameWanted()
    }
    DeskMenuItem {
        text: qsTr("Choose the symbol…")
        symbol: "square.grid.2x2"
        onTriggered: menu.symbolWanted()
    }
    DeskMenuItem {
        text: qsTr("Focus…")
        symbol: "line.3.horizontal.decrease"
        onTriggered: menu.newsrooms.openFocus(menu.key)
    }
    DeskMenuItem {
        text: qsTr("Move up")
        key: qsTr("Alt ↑")
        symbol: "arrow.up"
        onTriggered: menu.newsrooms.moveBy(menu.key, -1)
    }
    DeskMenuItem {
        text: qsTr("Move down")
        key: qsTr("Alt ↓")
        symbol: "arrow.down"
        onTriggered: menu.newsrooms.moveBy(menu.key, 1)
    }
    DeskMenuItem {
        text: menu.onBoard ? qsTr("Leave out of the board") : qsTr("Show on the board")
        symbol: menu.onBoard ? "eye.slash" : "eye"
        onTriggered: menu.newsrooms.setOnBoard(menu.key, !menu.onBoard)
    }
    MenuLine {}
    DeskMenuItem {
        text: qsTr("Duplicate")
        symbol: "plus.square.on.square"
        onTriggered: menu.newsrooms.duplicate(menu.key)
    }
    DeskMenuItem {
        text: qsTr("Export to a file")
        symbol: "square.and.arrow.up"
        onTriggered: menu.newsrooms.exportFile(menu.key)
    }
    MenuLine {}
    DeskMenuItem {
        text: qsTr("Remove")
        key: qsTr("Delete")
        symbol: "trash"
        onTriggered: menu.newsrooms.remove(menu.key)
    }
}
