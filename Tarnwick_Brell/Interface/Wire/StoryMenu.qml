pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The actions for the selected story.
DeskMenu {
    id: menu

    required property ActionModel actions

    Repeater {
        model: menu.actions.storyRows

        DeskMenuItem {
            required property int index
            required property string title
            required property string keyText
            required property bool isEnabled

            text: title
            key: keyText
            enabled: isEnabled
            onTriggered: menu.actions.triggerStoryRow(index)
        }
    }
}
