import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What can be done with a beat of the sidebar.
DeskMenu {
    id: menu

    required property BeatActions beats
    property string key

    function openFor(item: SidebarItem, x: real, y: real) {
        key = item.key;
        popup(item, x, y);
    }

    DeskMenuItem {
        text: qsTr("Edit…")
        key: qsTr("F2")
        symbol: "pencil"
        onTriggered: menu.beats.edit(menu.key)
    }
    DeskMenuItem {
        text: qsTr("Show the timeline")
        symbol: "chart.bar.xaxis"
        onTriggered: menu.beats.showTimeline(menu.key)
    }
    DeskMenuItem {
        text: qsTr("Tell me about this")
        symbol: "bell"
        onTriggered: menu.beats.makeAlert(menu.key)
    }
    DeskMenuItem {
        text: qsTr("Move up")
        key: qsTr("Alt ↑")
        symbol: "arrow.up"
        onTriggered: menu.beats.moveBy(menu.key, -1)
    }
    DeskMenuItem {
        text: qsTr("Move down")
        key: qsTr("Alt ↓")
        symbol: "arrow.down"
        onTriggered: menu.beats.moveBy(menu.key, 1)
    }
    MenuLine {}
    DeskMenuItem {
        text: qsTr("Remove")
        key: qsTr("Delete")
        symbol: "trash"
        onTriggered: menu.beats.remove(menu.key)
    }
}
