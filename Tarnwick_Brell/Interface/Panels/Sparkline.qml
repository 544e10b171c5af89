import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The way of a price in a row, in the colour of its day.
LineChartItem {
    property int move: PriceMove.Unknown
    /// Of old figures: without colour.
    property bool pale: false

    implicitWidth: Theme.sparklineWidth
    implicitHeight: Theme.sparklineHeight
    lineWidth: Theme.sparkline
    color: pale ? Theme.edge
         : move === PriceMove.Up ? Theme.greenMark
         : move === PriceMove.Down ? Theme.redMark : Theme.edge
}
