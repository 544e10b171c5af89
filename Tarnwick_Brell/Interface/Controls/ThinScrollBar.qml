import QtQuick
import QtQuick.Templates as T

/// A scroll bar over the content that is visible while it moves or is under the pointer.
T.ScrollBar {
    id: bar

    readonly property bool needed: !Theme.board && (policy === T.ScrollBar.AlwaysOn || active && size < 1)

    implicitWidth: Theme.scrollThumb + 2 * Theme.scrollMargin
    implicitHeight: Theme.scrollThumb + 2 * Theme.scrollMargin
    padding: Theme.scrollMargin
    minimumSize: Theme.scrollLeast / Math.max(Theme.scrollLeast, orientation === Qt.Vertical ? height : width)
    hoverEnabled: true
    contentItem: Rectangle {
        implicitWidth: Theme.scrollThumb
        implicitHeight: Theme.scrollThumb
        radius: Theme.scrollThumb / 2
        color: bar.pressed ? Theme.edge : Theme.border
        opacity: bar.needed ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.fade; easing.type: Easing.OutQuad }
        }
    }
    Accessible.ignored: true
}
