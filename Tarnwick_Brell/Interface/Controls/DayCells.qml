import QtQuick
import TarnwickBrell.Controls

/// The days of a service, one cell each, of which one can be read: by the pointer, or by the keys of
/// the list that sets `reading`. Whoever shows the cells gives the text of that day.
Item {
    id: cells

    required property list<int> days
    /// The number of last days to show.
    property int most: days.length
    /// Of the day that is read, counted from the first of `days`; -1 for none.
    property int reading: -1
    property string readingText
    property string label
    property bool pale: false
    property color issueInk: pale ? Theme.edge : Theme.amberMark

    /// The pointer is over that day; -1 when it has left.
    signal pointed(day: int)

    readonly property int pitch: Theme.dayCellWidth + Theme.dayCellGap
    readonly property int first: Math.max(0, days.length - most)
    readonly property bool isRead: reading >= first && reading < days.length

    // Assistive technology reads these of an item with this role.
    readonly property int value: reading
    readonly property int minimumValue: first
    readonly property int maximumValue: days.length - 1

    implicitWidth: (days.length - first) * pitch - Theme.dayCellGap
    implicitHeight: Theme.cellOutage
    Accessible.role: Accessible.Slider
    Accessible.name: label
    Accessible.description: isRead ? readingText : ""
    Accessible.readOnly: true

    DayCellsItem {
        anchors.fill: parent
        days: cells.days
        first: cells.first
        cellWidth: Theme.dayCellWidth
        cellGap: Theme.dayCellGap
        upHeight: Theme.cellUp
        issueHeight: Theme.cellIssue
        lineWidth: Theme.dayCellLine
        unknownColor: Theme.edge
        upColor: Theme.border
        maintenanceColor: cells.pale ? Theme.edge : Theme.blueMark
        issueColor: cells.issueInk
        outageColor: cells.pale ? Theme.edge : Theme.redMark
    }
    Rectangle {
        id: frame

        visible: cells.isRead
        x: (cells.reading - cells.first) * cells.pitch - Theme.step3
        y: -Theme.step3
        width: Theme.dayCellWidth + 2 * Theme.step3
        height: cells.height + 2 * Theme.step3
        radius: Theme.radiusBadge
        color: "transparent"
        border.width: Theme.focusRing
        border.color: Theme.accent

        Tip {
            visible: cells.isRead && cells.visible && cells.readingText !== ""
            delay: 0
            text: cells.readingText
        }
    }
    HoverHandler {
        id: pointer

        onPointChanged: {
            const day = cells.first + Math.floor(point.position.x / cells.pitch);
            cells.pointed(hovered ? Math.max(cells.first, Math.min(cells.days.length - 1, day)) : -1);
        }
        onHoveredChanged: if (!hovered)
            cells.pointed(-1)
    }
}
