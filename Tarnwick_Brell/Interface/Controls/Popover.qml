import QtQuick
import QtQuick.Templates as T

/// A small card below the button that is its parent, for options that work at once. It ends at the
/// button's right edge and moves as far as needed to stay in the window.
T.Popup {
    id: popover

    property string title
    default property alias body: column.data

    x: parent ? parent.width - width : 0
    y: parent ? parent.height + Theme.space1 : 0
    implicitWidth: Theme.popoverWidth
    implicitHeight: column.implicitHeight + topPadding + bottomPadding
    margins: Theme.space2
    horizontalPadding: Theme.space4
    verticalPadding: Theme.space3
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: Flickable {
        contentHeight: column.implicitHeight
        clip: true
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.Dialog
        Accessible.name: popover.title
        T.ScrollBar.vertical: ThinScrollBar {}

        Column {
            id: column

            width: parent.width
            spacing: Theme.space2
        }
    }
    background: MenuBackground {}
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.fade; easing.type: Easing.OutQuad }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Theme.fade; easing.type: Easing.OutQuad }
    }
}
