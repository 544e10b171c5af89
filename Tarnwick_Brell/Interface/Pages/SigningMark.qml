import QtQuick
import QtQuick.Shapes
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What a cell of the signing matrix shows. The shape tells all five states without colour; a build
/// that was never offered has none.
Item {
    id: cell

    required property int mark
    property bool pale: false

    readonly property bool isSigned: mark === SigningCell.Signed
    readonly property bool isStopped: mark === SigningCell.Stopped

    implicitWidth: PageSizes.signingMark
    implicitHeight: PageSizes.signingMark

    Rectangle {
        anchors.fill: parent
        visible: cell.isSigned || cell.isStopped
        radius: Theme.radiusBadge
        color: cell.isSigned ? (cell.pale ? Theme.edge : Theme.greenMark) : cell.pale ? "transparent" : Theme.amberSoft
        border.width: cell.isStopped ? Theme.markRing : 0
        border.color: cell.pale ? Theme.edge : Theme.amberMark
    }
    Symbol {
        anchors.centerIn: parent
        visible: cell.isSigned || cell.isStopped || cell.mark === SigningCell.NotSigned
        name: cell.isSigned ? "checkmark" : "minus"
        size: Theme.iconInMeta
        color: cell.isSigned ? Theme.surface : cell.isStopped && !cell.pale ? Theme.amber : Theme.text3
    }
    Shape {
        anchors.fill: parent
        visible: cell.mark === SigningCell.NotKnown

        ShapePath {
            strokeColor: Theme.edge
            strokeWidth: Theme.line
            strokeStyle: ShapePath.DashLine
            dashPattern: [PageSizes.signingDash, PageSizes.signingDash]
            fillColor: "transparent"
            // Centred on a pixel.
            startX: 0.5
            startY: 0.5

            PathLine {
                x: cell.width - 0.5
                y: 0.5
            }
            PathLine {
                x: cell.width - 0.5
                y: cell.height - 0.5
            }
            PathLine {
                x: 0.5
                y: cell.height - 0.5
            }
            PathLine {
                x: 0.5
                y: 0.5
            }
        }
    }
}
