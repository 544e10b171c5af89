import QtQuick
import QtQuick.Templates as T

/// Turns something on or off at once. `neutral` is for tables, where an accent in every row would
/// outshine the rows: there off is a ring with a dot, so that shape tells the state as well.
T.Switch {
    id: toggler

    property bool neutral: false
    readonly property bool hollow: neutral && !checked

    implicitWidth: Math.max(Theme.leastTarget, Theme.switchWidth + (text ? Theme.space2 + implicitContentWidth : 0))
    implicitHeight: Theme.control
    leftPadding: Theme.switchWidth + Theme.space2
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked

    contentItem: DeskText {
        visible: toggler.text
        type: DeskText.Secondary
        text: toggler.text
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    indicator: Rectangle {
        y: (toggler.height - height) / 2
        implicitWidth: Theme.switchWidth
        implicitHeight: Theme.switchHeight
        radius: height / 2
        color: toggler.hollow ? "transparent"
             : toggler.checked ? (toggler.neutral ? Theme.text3 : Theme.accent) : Theme.edge
        border.width: toggler.hollow ? Theme.markRing : 0
        border.color: Theme.edge

        Rectangle {
            readonly property int gap: (parent.height - height) / 2

            x: toggler.checked ? parent.width - width - gap : gap
            y: gap
            width: toggler.hollow ? Theme.markBox : Theme.switchKnob
            height: width
            radius: width / 2
            color: toggler.hollow ? Theme.edge : toggler.neutral ? Theme.surface : Theme.textOnAccent

            Behavior on x {
                NumberAnimation { duration: Theme.move; easing.type: Easing.OutQuad }
            }
        }
        FocusRing {
            control: toggler
            around: Theme.switchHeight / 2
        }
    }
}
