import QtQuick
import QtQuick.Templates as T

/// A card over the dimmed window that keeps the focus until it is closed, also by Esc. Its children
/// form the body; `foot` has the buttons at the right, `footStart` the items left of them.
T.Popup {
    id: sheet

    property string title
    property string closeText: qsTr("Close")
    property bool closable: true
    /// The body reaches the edges of the card.
    property bool flush: false
    default property alias body: bodySlot.data
    property alias foot: footRow.data
    property alias footStart: footStartRow.data

    readonly property bool hasFoot: footRow.children.length > 0 || footStartRow.children.length > 0
    property Item before: null

    onAboutToShow: before = parent.Window.activeFocusItem
    // An ApplicationWindow does this by itself.
    onClosed: {
        const now = parent.Window.activeFocusItem;
        if (before && (!now || now === parent.Window.contentItem))
            before.forceActiveFocus(Qt.PopupFocusReason);
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    modal: true
    focus: true
    closePolicy: closable ? T.Popup.CloseOnEscape : T.Popup.NoAutoClose
    margins: Theme.sheetMargin
    implicitWidth: Theme.sheetWidth
    implicitHeight: header.height + bodySlot.implicitHeight + (flush ? 0 : Theme.space6) + (hasFoot ? footBar.height : 0)
    width: Math.min(implicitWidth, (parent ? parent.width : implicitWidth) - 2 * margins)
    height: Math.min(implicitHeight, (parent ? parent.height : implicitHeight) - 2 * margins)

    contentItem: Item {
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.title

        Item {
            id: header
            width: parent.width
            height: Theme.sheetHeader

            DeskText {
                anchors.left: parent.left
                anchors.right: close.left
                anchors.margins: Theme.space6
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Heading
                text: sheet.title
                Accessible.role: Accessible.Heading
            }
            IconButton {
                id: close
                anchors.right: parent.right
                anchors.rightMargin: Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                visible: sheet.closable
                symbol: "xmark"
                text: sheet.closeText
                key: qsTr("Esc")
                onClicked: sheet.close()
            }
        }
        Item {
            id: bodySlot
            anchors.top: header.bottom
            anchors.bottom: footBar.top
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: sheet.flush ? 0 : Theme.space6
            anchors.rightMargin: anchors.leftMargin
            anchors.bottomMargin: anchors.leftMargin
            implicitHeight: childrenRect.height
        }
        Item {
            id: footBar
            anchors.bottom: parent.bottom
            width: parent.width
            height: sheet.hasFoot ? Theme.sheetFoot : 0
            visible: sheet.hasFoot

            Hairline { width: parent.width }
            Row {
                id: footStartRow
                x: Theme.space6
                anchors.verticalCenter: parent.verticalCenter
                spacing: Theme.space2
            }
            Row {
                id: footRow
                anchors.right: parent.right
                anchors.rightMargin: Theme.space6
                anchors.verticalCenter: parent.verticalCenter
                spacing: Theme.space2
            }
        }
    }
    background: Rectangle {
        radius: Theme.radiusSheet
        color: Theme.raised
        border.width: Theme.line
        border.color: Theme.hairline

        Shadow { z: -1 }
    }
    T.Overlay.modal: Rectangle {
        color: Theme.scrim

        Behavior on opacity {
            NumberAnimation { duration: Theme.fade; easing.type: Easing.OutQuad }
        }
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.fade; easing.type: Easing.OutQuad }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Theme.fade; easing.type: Easing.OutQuad }
    }
}
