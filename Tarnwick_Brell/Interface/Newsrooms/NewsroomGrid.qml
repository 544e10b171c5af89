pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Newsrooms

/// The panels of a newsroom on their grid of twelve columns, which the editor works on.
Flickable {
    id: grid

    required property NewsroomModel newsroom
    required property NewsroomEditor editor

    /// Whether the selected panel takes the keyboard focus.
    property bool keepsFocus: true

    signal panelMenuWanted(panel: int)

    readonly property bool editing: editor.isEditing
    readonly property real cell: (width - 2 * Theme.gridPadding - (Theme.gridColumns - 1) * Theme.gridGap) / Theme.gridColumns
    readonly property real columnStep: cell + Theme.gridGap
    /// Pages that fit without scrolling fill the height; edited ones keep their rows.
    readonly property real rowHeight: {
        const rows = newsroom.rowsUsed;
        if (rows === 0 || editing)
            return Theme.gridRow;
        const free = height - 2 * Theme.gridPadding - (rows - 1) * Theme.gridGap;
        return Math.max(Theme.gridRow, Math.floor(free / rows));
    }
    readonly property real rowStep: rowHeight + Theme.gridGap
    readonly property int rowsShown: newsroom.rowsUsed + (editing ? 1 : 0)

    /// The dragged panel, in the content's coordinates: where the pointer took it, where it was
    /// then, and where it is drawn now.
    property point grip
    property rect heldFrom
    property rect heldNow
    property int heldEdges: NewsroomEditor.NoEdge
    property point pointer

    function columnX(column: int): real {
        return Math.round(Theme.gridPadding + column * columnStep);
    }
    function rowY(row: int): real {
        return Theme.gridPadding + row * rowStep;
    }
    function frameOf(cells: rect): rect {
        const x = columnX(cells.x);
        const y = rowY(cells.y);
        return Qt.rect(x, y, columnX(cells.x + cells.width) - Theme.gridGap - x, cells.height * rowStep - Theme.gridGap);
    }

    function take(panel: int, edges: int, at: point) {
        const item = panels.itemAt(panel);
        heldEdges = edges;
        heldFrom = Qt.rect(item.x, item.y, item.width, item.height);
        heldNow = heldFrom;
        grip = contentItem.mapFromItem(null, at);
        item.forceActiveFocus();
        editor.beginDrag(panel, edges);
        pull(at);
    }
    function pull(at: point) {
        if (!editor.isDragging)
            return;
        pointer = at;
        const here = contentItem.mapFromItem(null, at);
        const dx = here.x - grip.x;
        const dy = here.y - grip.y;
        const edges = heldEdges;
        const moved = edges === NewsroomEditor.NoEdge;
        const fromLeft = edges & NewsroomEditor.LeftEdge ? dx : 0;
        const fromTop = edges & NewsroomEditor.TopEdge ? dy : 0;
        heldNow = Qt.rect(heldFrom.x + (moved ? dx : fromLeft), heldFrom.y + (moved ? dy : fromTop),
                          Math.max(cell, heldFrom.width - fromLeft + (edges & NewsroomEditor.RightEdge ? dx : 0)),
                          Math.max(Theme.panelHeader, heldFrom.height - fromTop + (edges & NewsroomEditor.BottomEdge ? dy : 0)));
        editor.drag(dx / columnStep, dy / rowStep);
    }
    /// A new panel comes with its upper left corner under the pointer.
    function bring(at: point) {
        pointer = at;
        const here = contentItem.mapFromItem(null, at);
        editor.drag((here.x - Theme.gridPadding) / columnStep - 0.5, (here.y - Theme.gridPadding) / rowStep - 0.5);
    }
    function reveal(panel: int) {
        const item = panels.itemAt(panel);
        if (!item || editor.isDragging)
            return;
        const lowest = Math.max(0, contentHeight - height);
        if (item.y < contentY + Theme.gridPadding)
            contentY = Math.max(0, item.y - Theme.gridPadding);
        else if (item.y + item.height > contentY + height - Theme.gridPadding)
            contentY = Math.min(lowest, Math.min(item.y - Theme.gridPadding, item.y + item.height + Theme.gridPadding - height));
    }
    function focusSelected() {
        if (!keepsFocus)
            return;
        const item = editing ? panels.itemAt(editor.selected) : null;
        if (item)
            item.forceActiveFocus();
        else
            forceActiveFocus();
    }

    clip: true
    contentHeight: 2 * Theme.gridPadding + rowsShown * rowStep - Theme.gridGap
    boundsBehavior: Flickable.StopAtBounds
    interactive: !editor.isDragging
    T.ScrollBar.vertical: ThinScrollBar {}

    /// The cells in view; the panels cover those on which they lie.
    CellGridItem {
        id: cells

        readonly property int first: Math.max(0, Math.floor((grid.contentY - Theme.gridPadding) / grid.rowStep))

        x: Theme.gridPadding
        y: grid.rowY(cells.first)
        width: grid.width - 2 * Theme.gridPadding
        height: cells.rows * grid.rowStep - Theme.gridGap
        visible: grid.editing
        columns: Theme.gridColumns
        rows: Math.ceil(grid.height / grid.rowStep) + 1
        gap: Theme.gridGap
        radius: Theme.radiusControl
        lineWidth: Theme.line
        color: Theme.border
    }
    CellGridItem {
        id: target

        readonly property rect place: grid.frameOf(Qt.rect(grid.editor.target.x, grid.editor.target.y,
                                                           grid.editor.target.width, grid.editor.target.height))

        x: target.place.x
        y: target.place.y
        width: target.place.width
        height: target.place.height
        visible: grid.editor.isDragging
        radius: Theme.radiusPanel
        lineWidth: Theme.focusRing
        color: Theme.accent
        fill: Theme.accentSoft
    }
    Repeater {
        id: panels

        model: grid.newsroom

        GridPanel {
            id: panel

            required property int index
            required property int column
            required property int row
            required property int columns
            required property int rows
            readonly property rect frame: held ? grid.heldNow : grid.frameOf(Qt.rect(column, row, columns, rows))

            x: frame.x
            y: frame.y
            z: held ? 2 : selected ? 1 : 0
            width: frame.width
            height: frame.height
            editable: grid.editor.canEdit
            editing: grid.editing
            selected: editing && grid.editor.selected === index
            held: grid.editor.held === index && grid.heldNow.width > 0
            onPicked: {
                grid.editor.selected = index;
                forceActiveFocus();
            }
            onMenuWanted: grid.panelMenuWanted(index)
            onGripped: (edges, at) => grid.take(index, edges, at)
            onPulled: at => grid.pull(at)
            onDropped: grid.editor.drop()
            onCancelled: grid.editor.cancelDrag()

            Behavior on x {
                enabled: grid.editor.isDragging && !panel.held
                NumberAnimation { duration: Theme.move; easing.type: Easing.OutQuad }
            }
            Behavior on y {
                enabled: grid.editor.isDragging && !panel.held
                NumberAnimation { duration: Theme.move; easing.type: Easing.OutQuad }
            }
        }
    }
    PanelHandles {
        readonly property Item panel: grid.editing ? panels.itemAt(grid.editor.selected) : null

        x: panel ? panel.x : 0
        y: panel ? panel.y : 0
        z: 3
        width: panel ? panel.width : 0
        height: panel ? panel.height : 0
        visible: panel !== null
        dragged: grid.editor.isDragging ? grid.heldEdges : NewsroomEditor.NoEdge
        onGripped: (edges, at) => grid.take(grid.editor.selected, edges, at)
        onPulled: at => grid.pull(at)
        onDropped: grid.editor.drop()
        onCancelled: grid.editor.cancelDrag()
    }
    /// The size and place that the dragged panel would have.
    Rectangle {
        x: Math.min(grid.heldNow.x + Theme.space3, grid.width - width - Theme.gridPadding)
        y: Math.min(grid.heldNow.y + grid.heldNow.height + Theme.space2, grid.contentY + grid.height - height - Theme.space2)
        z: 3
        width: tag.implicitWidth + 2 * Theme.space2
        height: tag.implicitHeight + Theme.space1
        visible: grid.editor.held >= 0 && grid.heldNow.width > 0
        radius: Theme.radiusBadge
        color: Theme.tip

        DeskText {
            id: tag

            anchors.centerIn: parent
            type: DeskText.MetaMedium
            text: grid.editor.dragText
            color: Theme.textOnTip
        }
    }
    /// Scrolls while a panel is held at the upper or lower edge.
    Timer {
        readonly property real height: grid.mapFromItem(null, grid.pointer.x, grid.pointer.y).y
        readonly property int way: height < Theme.gridPadding ? -1 : height > grid.height - Theme.gridPadding ? 1 : 0

        interval: Theme.scrollTick
        repeat: true
        running: grid.editor.held >= 0 && way !== 0
        onTriggered: {
            const lowest = Math.max(0, grid.contentHeight - grid.height);
            grid.contentY = Math.min(lowest, Math.max(0, grid.contentY + way * Theme.scrollStep));
            grid.pull(grid.pointer);
        }
    }
    Connections {
        target: grid.editor

        function onDragChanged() {
            if (!grid.editor.isDragging)
                grid.heldNow = Qt.rect(0, 0, 0, 0);
        }
        function onSelectedChanged() {
            if (!grid.editing)
                return;
            grid.reveal(grid.editor.selected);
            grid.focusSelected();
        }
    }

    Keys.enabled: editing
    Keys.onPressed: event => {
        const resizes = (event.modifiers & Qt.ShiftModifier) !== 0;
        const step = way => resizes ? grid.editor.resizeBy(way) : grid.editor.nudge(way);
        switch (event.key) {
        case Qt.Key_Left:
            step(NewsroomEditor.Left);
            break;
        case Qt.Key_Right:
            step(NewsroomEditor.Right);
            break;
        case Qt.Key_Up:
            step(NewsroomEditor.Up);
            break;
        case Qt.Key_Down:
            step(NewsroomEditor.Down);
            break;
        case Qt.Key_Tab:
            grid.editor.selectNext();
            break;
        case Qt.Key_Backtab:
            grid.editor.selectNext(true);
            break;
        case Qt.Key_Delete:
            grid.editor.removeSelected();
            break;
        case Qt.Key_Escape:
            grid.editor.leave();
            break;
        default:
            return;
        }
        event.accepted = true;
    }
}
