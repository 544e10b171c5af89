import QtQuick
import QtQuick.Templates as T

/// What all buttons have in common. A click by the pointer leaves the focus where it is, so that
/// the keys of the list go on working.
T.AbstractButton {
    id: button

    /// Shown after a moment, for a button whose text says less than a person may need.
    property string tip
    /// The name of the key that does the same.
    property string key

    implicitWidth: Math.max(implicitBackgroundWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight, implicitContentHeight + topPadding + bottomPadding)
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: text
    Accessible.description: tip === text ? "" : tip
    Keys.onReturnPressed: activate()
    Keys.onEnterPressed: activate()

    function activate() {
        if (checkable) {
            toggle();
            toggled();
        }
        clicked();
    }

    Loader {
        active: button.tip && (button.hovered || button.visualFocus) && !button.down
        source: "Tip.qml"
        onLoaded: {
            const tip = item as Tip;
            tip.parent = button;
            tip.text = button.tip;
            tip.key = button.key;
            tip.visible = true;
        }
    }
}
