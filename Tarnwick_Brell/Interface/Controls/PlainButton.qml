import QtQuick
import QtQuick.Templates as T

/// The base of all buttons. A click does not take the focus, so that the keys of the list keep
/// working.
T.AbstractButton {
    id: button

    /// Shown after a moment, for a button whose text is not enough.
    property string tip
    /// The name of the equivalent key.
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
