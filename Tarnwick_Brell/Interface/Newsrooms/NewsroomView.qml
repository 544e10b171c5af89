pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// A newsroom: its panels on a grid of twelve columns.
FocusScope {
    id: view

    required property NewsroomModel newsroom

    readonly property real cell: (grid.width - 2 * Theme.gridPadding - (Theme.gridColumns - 1) * Theme.gridGap) / Theme.gridColumns
    /// Pages that fit without scrolling fill the height.
    readonly property real rowHeight: {
        const rows = newsroom.rowsUsed;
        if (rows === 0)
            return Theme.gridRow;
        const free = height - 2 * Theme.gridPadding - (rows - 1) * Theme.gridGap;
        return Math.max(Theme.gridRow, Math.floor(free / rows));
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.canvas
    }

    Flickable {
        id: grid

        anchors.fill: parent
        clip: true
        contentHeight: 2 * Theme.gridPadding + view.newsroom.rowsUsed * (view.rowHeight + Theme.gridGap) - Theme.gridGap
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ThinScrollBar {}

        Repeater {
            model: view.newsroom

            PanelView {
                required property int column
                required property int row
                required property int columns
                required property int rows

                required symbol
                hasMenu: false
                x: Math.round(Theme.gridPadding + column * (view.cell + Theme.gridGap))
                y: Theme.gridPadding + row * (view.rowHeight + Theme.gridGap)
                width: Math.round(Theme.gridPadding + (column + columns) * (view.cell + Theme.gridGap) - Theme.gridGap) - x
                height: rows * (view.rowHeight + Theme.gridGap) - Theme.gridGap
            }
        }
    }

    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.gridPadding
        visible: view.newsroom.isEmpty && text !== ""
        page: true
        symbol: view.newsroom.fault !== "" ? "exclamationmark.triangle" : "square.grid.2x2"
        text: view.newsroom.fault !== "" ? qsTr("This newsroom can't be read.")
            : view.newsroom.title !== "" ? qsTr("This newsroom has no panels.") : ""
        hint: view.newsroom.fault
    }
}
