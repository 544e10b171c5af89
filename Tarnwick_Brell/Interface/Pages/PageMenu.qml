pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What can be done with what is selected on the page.
DeskMenu {
    id: menu

    required property ActionModel actions

    Repeater {
        model: menu.actions.pageRows

        DeskMenuItem {
            required property int index
            required property string title
            required property string keyText

            required symbol
            text: title
            key: keyText
            onTriggered: menu.actions.triggerPageRow(index)
        }
    }
}
