import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// A small price chart in a row, in the colour of the day's change.
LineChartItem {
    property int move: PriceMove.Unknown
    /// Without colour, for stale figures.
    property bool pale: false

    implicitWidth: Theme.sparklineWidth
    implicitHeight: Theme.sparklineHeight
    lineWidth: Theme.sparkline
    color: pale ? Theme.edge
         : move === PriceMove.Up ? Theme.greenMark
         : move === PriceMove.Down ? Theme.redMark : Theme.edge
}
