import QtQuick
import TarnwickBrell.Controls

/// How the fetches of a source went, a cell for some hours: tall where one failed, middle where
/// there was news, low where nothing was new. Read with the pointer or with the left and right keys.
FocusScope {
    id: cells

    /// Kinds of cells, the oldest first.
    required property list<int> spans
    required property list<string> texts

    implicitHeight: Theme.cellOutage
    activeFocusOnTab: true
    Keys.onLeftPressed: bars.reading = Math.max(bars.first, (bars.isRead ? bars.reading : spans.length) - 1)
    Keys.onRightPressed: bars.reading = Math.min(spans.length - 1, (bars.isRead ? bars.reading : spans.length - 2) + 1)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            bars.reading = event.key === Qt.Key_Home ? bars.first : spans.length - 1;
    }
    onActiveFocusChanged: bars.reading = activeFocus ? spans.length - 1 : -1

    DayCells {
        id: bars

        days: cells.spans
        most: Math.floor((cells.width + Theme.dayCellGap) / pitch)
        issueInk: Theme.greenMark
        readingText: isRead ? cells.texts[reading] : ""
        label: qsTr("Fetches of the last 7 days")
        onPointed: day => reading = day
    }
}
