import QtQuick
import QtQuick.Templates as T

/// Stands inside a control and shows round it while the keyboard has it. Rows and fields take
/// it `inside` their edge.
Rectangle {
    required property T.Control control
    property real around: Theme.radiusControl
    property bool inside: false

    anchors.fill: parent
    anchors.margins: inside ? 0 : -(Theme.focusRing + Theme.focusGap)
    visible: control.visualFocus
    radius: inside ? around : around + Theme.focusRing + Theme.focusGap
    color: "transparent"
    border.width: Theme.focusRing
    border.color: Theme.accent
    z: 1
}
