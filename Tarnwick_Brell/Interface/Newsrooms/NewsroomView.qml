import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A newsroom: its panels on their grid, with the kinds of panels beside it while one is added.
FocusScope {
    id: view

    required property NewsroomModel newsroom
    required property NewsroomEditor editor

    signal panelMenuWanted(panel: int)

    /// Where the grid would get too narrow, the picker lies over it.
    readonly property bool docked: width - picker.width >= Theme.gridLeast

    Rectangle {
        anchors.fill: parent
        color: Theme.canvas
    }
    NewsroomGrid {
        id: grid

        width: parent.width - (picker.visible && view.docked ? picker.width : 0)
        height: parent.height
        focus: !picker.visible
        newsroom: view.newsroom
        editor: view.editor
        keepsFocus: !picker.visible || !picker.activeFocus
        onPanelMenuWanted: panel => view.panelMenuWanted(panel)
    }
    EmptyState {
        anchors.centerIn: grid
        width: grid.width - 2 * Theme.gridPadding
        visible: view.newsroom.isEmpty && text !== ""
        page: true
        symbol: view.newsroom.fault !== "" ? "exclamationmark.triangle" : "square.grid.2x2"
        text: view.newsroom.fault !== "" ? qsTr("This newsroom can't be read.")
            : view.newsroom.title !== "" ? qsTr("This newsroom has no panels.") : ""
        hint: view.newsroom.fault
        action: view.editor.canEdit && !view.editor.isPicking ? qsTr("Add a panel") : ""
        onActed: {
            view.editor.begin();
            view.editor.isPicking = true;
        }
    }
    PanelPicker {
        id: picker

        anchors.right: parent.right
        width: Theme.pickerWidth
        height: parent.height
        visible: view.editor.isPicking
        kinds: view.editor.picker
        onVisibleChanged: if (visible)
            forceActiveFocus()
        onCloseWanted: {
            view.editor.isPicking = false;
            grid.focusSelected();
        }
        onLifted: at => grid.bring(at)
        onPulled: at => grid.bring(at)
        onDropped: view.editor.drop()
        onCancelled: view.editor.cancelDrag()
    }
}
