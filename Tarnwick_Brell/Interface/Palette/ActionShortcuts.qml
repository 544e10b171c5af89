pragma ComponentBehavior: Bound

import QtQml
import QtQuick
import TarnwickBrell.Models

/// The keys of all actions in the window that this stands in. Keys of the list of stories are
/// the list's own.
Instantiator {
    id: all

    required property ActionModel actions
    /// A text field has the focus: only keys that nobody types work.
    property bool textFocused: false
    /// Something stands over the window that has keys of its own.
    property bool covered: false

    model: actions.rows
    delegate: Shortcut {
        required property int action
        // Lists of text, as Shortcut takes them.
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
