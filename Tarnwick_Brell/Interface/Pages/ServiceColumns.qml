import QtQuick
import TarnwickBrell.Controls

/// Where the columns of a table of services are at this width. What room remains goes to the names.
/// The share goes first, then only the last 30 days are shown.
QtObject {
    required property real width
    readonly property real start: Theme.gridPadding
    readonly property real inner: width - 2 * start
    readonly property real fixed: PageSizes.lastIncidentColumn + PageSizes.columnGap + PageSizes.serviceColumn
    readonly property int pitch: Theme.dayCellWidth + Theme.dayCellGap
    readonly property int allDays: 90

    readonly property bool hasShare: inner >= fixed + allDays * pitch + PageSizes.shareColumn
    readonly property int days: hasShare || inner >= fixed + allDays * pitch ? allDays : PageSizes.daysLeast
    readonly property real cellsWidth: days * pitch - Theme.dayCellGap
    readonly property real lastX: start + inner - PageSizes.lastIncidentColumn
    readonly property real shareX: lastX - PageSizes.columnGap - (hasShare ? PageSizes.shareColumn : 0)
    readonly property real cellsX: shareX - cellsWidth
    readonly property real nameX: start
    readonly property real nameWidth: cellsX - nameX - Theme.space3
}
