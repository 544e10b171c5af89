import QtQuick
import QtQuick.Templates as T

/// A notice at the bottom of the window with at most one action. It closes after a while unless the
/// pointer is on it or its action has the focus.
T.Popup {
    id: toast

    signal acted

    property string text
    property string action

    function show(newText: string, newAction: string) {
        text = newText;
        action = newAction;
        open();
        rest.restart();
    }

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height - height - Theme.space5 : 0
    implicitWidth: Math.min(implicitContentWidth, Theme.noticeMost) + leftPadding + rightPadding
    implicitHeight: Theme.bar
    leftPadding: Theme.space3
    rightPadding: Theme.space3
    closePolicy: T.Popup.NoAutoClose
    contentItem: Item {
        implicitWidth: words.implicitWidth + (act.visible ? act.implicitWidth + Theme.space4 : 0)
        Accessible.role: Accessible.AlertMessage
        Accessible.name: toast.text

        DeskText {
            id: words
            anchors.left: parent.left
            anchors.right: act.visible ? act.left : parent.right
            anchors.rightMargin: act.visible ? Theme.space4 : 0
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            text: toast.text
            color: Theme.textOnTip
        }
        LinkText {
            id: act
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            visible: toast.action
            type: DeskText.SecondaryStrong
            text: toast.action
            ink: Theme.textOnTip
            onClicked: {
                toast.close();
                toast.acted();
            }
        }
        HoverHandler { id: pointer }
    }
    background: Rectangle {
        radius: Theme.radiusPanel
        color: Theme.tip
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.fade; easing.type: Easing.OutQuad }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Theme.fade; easing.type: Easing.OutQuad }
    }

    Timer {
        id: rest
        interval: Theme.noticeTime
        running: toast.opened && !pointer.hovered && !act.activeFocus
        onTriggered: toast.close()
    }
}
