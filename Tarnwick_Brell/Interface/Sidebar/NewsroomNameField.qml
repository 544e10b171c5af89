import QtQuick
import TarnwickBrell.Controls

/// The name of a newsroom while it is changed in its row of the list.
DeskField {
    id: field

    required property ListView list
    property string place
    property SidebarItem row: null

    signal renamed(place: string, name: string)

    function start(item: SidebarItem) {
        row = item;
        place = item.key;
        text = item.title;
        forceActiveFocus();
        selectAll();
    }
    function finish() {
        place = "";
        row = null;
        // The list is a focus scope: it has the keys itself only when nothing in it does.
        focus = false;
        list.forceActiveFocus();
    }

    parent: list.contentItem
    x: Theme.space8
    y: row ? row.y : 0
    z: 1
    width: list.width - x - Theme.space2
    height: Theme.sidebarItem
    visible: place !== ""
    outlined: true
    label: qsTr("Name of the newsroom")
    onAccepted: {
        renamed(place, text);
        finish();
    }
    onActiveFocusChanged: if (!activeFocus && place !== "")
        place = ""
    Keys.onEscapePressed: finish()
}
