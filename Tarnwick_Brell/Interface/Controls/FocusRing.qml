import QtQuick
import QtQuick.Templates as T

/// A child of a control that is drawn around it while it has the keyboard focus. Rows and fields
/// draw it `inside` their edge.
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
