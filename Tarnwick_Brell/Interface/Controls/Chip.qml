import QtQuick

/// A filter. A click opens its menu; while `active` it has a cross that emits `cleared`, as Delete
/// does.
PlainButton {
    id: chip

    signal cleared

    property bool active: false
    property bool clearable: active

    readonly property color ink: active ? Theme.accentText : Theme.text2

    leftPadding: Theme.chipPadding
    rightPadding: Theme.space2
    contentItem: Item {
        implicitWidth: label.implicitWidth + end.width + Theme.badgeGap

        DeskText {
            id: label
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - end.width - Theme.badgeGap
            type: DeskText.SecondaryMedium
            text: chip.text
            color: chip.ink
            Accessible.ignored: true
        }
        Symbol {
            id: end
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            name: chip.clearable ? "xmark" : "chevron.down"
            size: Theme.iconInMeta
            color: chip.ink
        }
    }
    background: Rectangle {
        implicitHeight: Theme.control
        radius: Theme.radiusControl
        color: chip.active ? Theme.accentSoft : chip.down ? Theme.press : chip.hovered ? Theme.hover : Theme.surface
        border.width: chip.active ? 0 : Theme.line
        border.color: Theme.border
    }
    Accessible.role: Accessible.ButtonMenu
    Accessible.description: active ? qsTr("Delete removes this filter.") : ""
    Keys.onDeletePressed: if (clearable) cleared()
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Backspace || !clearable)
            return;
        cleared();
        event.accepted = true;
    }

    PlainButton {
        anchors.right: parent.right
        width: Theme.leastTarget
        height: parent.height
        visible: chip.clearable
        focusPolicy: Qt.NoFocus
        text: qsTr("Remove: %1").arg(chip.text)
        onClicked: chip.cleared()
    }
    FocusRing { control: chip }
}
