import QtQuick
import QtQuick.Shapes
import TarnwickBrell.Controls

/// A dashed line, horizontal or vertical, as long as the item.
Shape {
    id: line

    property bool vertical: false

    implicitWidth: Theme.line
    implicitHeight: Theme.line

    ShapePath {
        strokeColor: Theme.edge
        strokeWidth: Theme.line
        strokeStyle: ShapePath.DashLine
        dashPattern: line.vertical ? [1, 3] : [2, 3]
        capStyle: ShapePath.FlatCap
        fillColor: "transparent"
        // Centred on a pixel.
        startX: line.vertical ? 0.5 : 0
        startY: line.vertical ? 0 : 0.5

        PathLine {
            x: line.vertical ? 0.5 : line.width
            y: line.vertical ? line.height : 0.5
        }
    }
}
