pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The panels of a newsroom, stretched over the whole height. Those for which it is too low are
/// left out.
Item {
    id: grid

    required property NewsroomModel newsroom

    readonly property real columnStep: (width + Theme.boardGap) / Theme.gridColumns
    readonly property int rowsShown: Math.max(1, Math.min(newsroom.rowsUsed, Math.floor((height + Theme.boardGap) / (Theme.boardRowLeast + Theme.boardGap))))
    readonly property real rowStep: (height + Theme.boardGap) / rowsShown

    Repeater {
        model: grid.newsroom

        PanelView {
            required symbol
            required property int column
            required property int row
            required property int columns
            required property int rows
            readonly property int rowsHere: Math.min(rows, grid.rowsShown - row)

            x: Math.round(column * grid.columnStep)
            y: Math.round(row * grid.rowStep)
            width: Math.round(columns * grid.columnStep - Theme.boardGap)
            height: Math.round(rowsHere * grid.rowStep - Theme.boardGap)
            visible: rowsHere > 0
            hasMenu: false
        }
    }
}
