pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import TarnwickBrell.Models

/// The keys of all actions of the window. The list of stories handles its own keys.
Instantiator {
    id: all

    required property ActionModel actions
    /// A text field has the focus: only keys that are not typed into text work.
    property bool textFocused: false
    /// Something with keys of its own covers the window.
    property bool covered: false

    model: actions.rows
    delegate: Shortcut {
        required property int action
        // Lists of text, as Shortcut expects.
        required property var shortcuts
        required property var shortcutsInText
        required property bool isEnabled
        required property bool repeats

        sequences: all.textFocused ? shortcutsInText : shortcuts
        enabled: isEnabled && !all.covered
        autoRepeat: repeats
        onActivated: all.actions.trigger(action)
    }
}
