pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The earlier texts of a note; a click brings one back.
DeskMenu {
    id: menu

    required property NoteEditor editor

    Repeater {
        model: menu.editor.versions

        delegate: DeskMenuItem {
            required property string modelData
            required property int index

            text: modelData
            symbol: "clock"
            onTriggered: menu.editor.useVersion(index)
        }
    }
}
