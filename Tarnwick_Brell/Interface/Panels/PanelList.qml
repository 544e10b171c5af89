import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls

/// The rows of a panel, which scroll when they don't fit, also by the arrow keys.
ListView {
    id: list

    property string label

    function scroll(by: real) {
        const last = originY + Math.max(0, contentHeight - height);
        contentY = Math.max(originY, Math.min(last, contentY + by));
    }

    clip: true
    interactive: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    activeFocusOnTab: interactive
    T.ScrollBar.vertical: ThinScrollBar {}
    Accessible.role: Accessible.List
    Accessible.name: label
    Keys.onDownPressed: scroll(Theme.tableRow)
    Keys.onUpPressed: scroll(-Theme.tableRow)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_PageDown || event.key === Qt.Key_PageUp;
        if (event.accepted)
            scroll(event.key === Qt.Key_PageDown ? height : -height);
    }

    WholeRows {
        list: list
    }
    Rectangle {
        parent: list
        anchors.fill: parent
        visible: list.activeFocus
        radius: Theme.radiusBadge
        color: "transparent"
        border.width: Theme.focusRing
        border.color: Theme.accent
    }
}
