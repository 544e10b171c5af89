pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Finds every action, place and story by keyboard. Its top edge stays in place, whatever it finds.
T.Popup {
    id: popup

    required property PaletteModel palette

    property Item before: null

    function show(): void {
        if (opened)
            return;
        palette.open();
        open();
    }

    function run(): void {
        close();
        palette.runSelected();
    }

    onAboutToShow: {
        before = parent.Window.activeFocusItem;
        field.begin();
    }
    onClosed: {
        const now = parent.Window.activeFocusItem;
        if (before && (!now || now === parent.Window.contentItem))
            before.forceActiveFocus(Qt.PopupFocusReason);
    }

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: Theme.paletteTop
    width: Math.min(Theme.paletteWidth, (parent ? parent.width : Theme.paletteWidth) - 2 * Theme.sheetMargin)
    height: Math.min(field.height + rows.wanted + foot.height, Math.floor((parent ? parent.height : 0) * Theme.paletteMostHeight))
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    contentItem: FocusScope {
        Accessible.role: Accessible.Dialog
        Accessible.name: qsTr("Commands, places and stories")

        PaletteField {
            id: field

            width: parent.width
            focus: true
            page: Math.max(1, Math.floor(rows.height / Theme.paletteRow) - 1)
            selectedSpokenText: popup.palette.selectedSpokenText
            onEdited: text => popup.palette.text = text
            onMoved: steps => popup.palette.moveBy(steps)
            onRun: popup.run()
        }
        Hairline {
            y: field.height - height
            width: parent.width
        }
        ListView {
            id: rows

            /// The height of all rows; the list only knows those that it has created.
            readonly property real wanted: contentHeight + topMargin + bottomMargin

            anchors.top: field.bottom
            anchors.bottom: foot.top
            width: parent.width
            topMargin: Theme.step2
            bottomMargin: Theme.space2
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            highlightFollowsCurrentItem: true
            highlightMoveDuration: 0
            highlightResizeDuration: 0
            // Creates all rows: there are few, and their total height is needed.
            cacheBuffer: Theme.paletteRow * count * 2
            model: popup.palette.rows
            currentIndex: popup.palette.selected
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Matches")

            delegate: PaletteLine {
                width: rows.width
                isSelected: ListView.isCurrentItem
                onPointed: popup.palette.selected = index
                onChosen: {
                    popup.palette.selected = index;
                    popup.run();
                }
            }
            T.ScrollBar.vertical: ThinScrollBar {}
        }
        PaletteFoot {
            id: foot

            anchors.bottom: parent.bottom
            width: parent.width
            countText: popup.palette.countText
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
