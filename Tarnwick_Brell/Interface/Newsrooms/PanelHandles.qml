pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The outline of the selected panel with a handle on each edge and corner.
Rectangle {
    id: handles

    /// The edges that are dragged now.
    property int dragged: NewsroomEditor.NoEdge

    signal gripped(edges: int, at: point)
    signal pulled(at: point)
    signal dropped
    signal cancelled

    radius: Theme.radiusPanel
    color: "transparent"
    border.width: Theme.focusRing
    border.color: Theme.accent

    Repeater {
        model: [
            NewsroomEditor.LeftEdge | NewsroomEditor.TopEdge, NewsroomEditor.TopEdge,
            NewsroomEditor.RightEdge | NewsroomEditor.TopEdge, NewsroomEditor.RightEdge,
            NewsroomEditor.RightEdge | NewsroomEditor.BottomEdge, NewsroomEditor.BottomEdge,
            NewsroomEditor.LeftEdge | NewsroomEditor.BottomEdge, NewsroomEditor.LeftEdge
        ]

        MouseArea {
            id: handle

            required property int modelData
            readonly property bool atLeft: (modelData & NewsroomEditor.LeftEdge) !== 0
            readonly property bool atRight: (modelData & NewsroomEditor.RightEdge) !== 0
            readonly property bool atTop: (modelData & NewsroomEditor.TopEdge) !== 0
            readonly property bool atBottom: (modelData & NewsroomEditor.BottomEdge) !== 0
            readonly property bool sideways: atLeft || atRight
            readonly property bool upright: atTop || atBottom

            x: (atLeft ? 0 : atRight ? handles.width : handles.width / 2) - width / 2
            y: (atTop ? 0 : atBottom ? handles.height : handles.height / 2) - height / 2
            width: Theme.leastTarget
            height: Theme.leastTarget
            preventStealing: true
            cursorShape: !upright ? Qt.SizeHorCursor : !sideways ? Qt.SizeVerCursor
                       : atLeft === atTop ? Qt.SizeFDiagCursor : Qt.SizeBDiagCursor
            onPressed: mouse => handles.gripped(modelData, mapToItem(null, mouse.x, mouse.y))
            onPositionChanged: mouse => handles.pulled(mapToItem(null, mouse.x, mouse.y))
            onReleased: handles.dropped()
            onCanceled: handles.cancelled()

            Rectangle {
                anchors.centerIn: parent
                width: handle.upright && !handle.sideways ? Theme.handleLong : Theme.handle
                height: handle.sideways && !handle.upright ? Theme.handleLong : Theme.handle
                radius: handle.sideways && handle.upright ? Theme.radiusBar : Theme.handle / 2
                color: handles.dragged === handle.modelData ? Theme.accent : Theme.surface
                border.width: Theme.chartLine
                border.color: Theme.accent
            }
        }
    }
}
