import QtQuick
import QtQuick.Templates as T

/// The rows of a page's table or list, chosen with the arrow keys. A list with headings between its
/// rows overrides `canChoose`.
ListView {
    id: list

    property string label
    /// Stand above the first row and below the last, and scroll with them: Qt 6.4 never loads a
    /// `header` that is bound to its file.
    property Item head: null
    property Item foot: null
    /// Enter and the menu open the row.
    property bool opens: true
    /// Alt with the arrows asks for another place of the row.
    property bool isOrdered: false
    readonly property int shownRows: Math.max(1, Math.floor(height / Theme.tableRow) - 1)

    signal opened(row: int)
    signal moved(row: int, by: int)

    function canChoose(row: int): bool {
        return true;
    }
    function nextRow(from: int, by: int): int {
        let row = from + by;
        while (row >= 0 && row < count && !canChoose(row))
            row += by;
        return row >= 0 && row < count ? row : -1;
    }
    /// With the head; positionViewAtBeginning() leaves margins out.
    function showTop() {
        contentY = originY - topMargin;
    }
    function choose(row: int) {
        if (row < 0)
            return;
        currentIndex = row;
        if (nextRow(row, -1) < 0)
            showTop();
        else
            positionViewAtIndex(row, ListView.Contain);
    }
    /// Ctrl+Enter is for the sheet that the list is in.
    function enter(event: KeyEvent) {
        event.accepted = currentIndex >= 0 && !(event.modifiers & Qt.ControlModifier);
        if (event.accepted)
            opened(currentIndex);
    }
    function arrow(event: KeyEvent, by: int) {
        if (isOrdered && event.modifiers & Qt.AltModifier)
            moved(currentIndex, by);
        else
            step(by);
    }
    /// Goes on by that many rows, as far as there are any.
    function step(by: int) {
        let row = currentIndex;
        for (let left = Math.abs(by); left > 0; --left) {
            const next = nextRow(row, Math.sign(by));
            if (next < 0)
                break;
            row = next;
        }
        choose(row);
    }

    topMargin: head ? head.height : 0
    bottomMargin: foot ? foot.height : 0
    clip: true
    focus: true
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    highlightFollowsCurrentItem: false
    keyNavigationEnabled: false
    currentIndex: -1
    T.ScrollBar.vertical: ThinScrollBar {}
    onTopMarginChanged: if (currentIndex < 0) showTop()

    Binding {
        target: list.head
        when: list.head !== null
        property: "parent"
        value: list.contentItem
    }
    Binding {
        target: list.head
        when: list.head !== null
        property: "y"
        value: list.originY - list.topMargin
    }
    Binding {
        target: list.foot
        when: list.foot !== null
        property: "parent"
        value: list.contentItem
    }
    Binding {
        target: list.foot
        when: list.foot !== null
        property: "y"
        value: list.originY + list.contentHeight
    }

    Accessible.role: Accessible.List
    Accessible.name: label
    Keys.onUpPressed: event => arrow(event, -1)
    Keys.onDownPressed: event => arrow(event, 1)
    Keys.onReturnPressed: event => enter(event)
    Keys.onEnterPressed: event => enter(event)
    Keys.onPressed: event => event.accepted = takesKey(event)

    /// Whether a key was meant for the list; a list with keys of its own overrides it.
    function takesKey(event: KeyEvent): bool {
        return movedBy(event.key);
    }

    /// Whether it is a key that moves the choice.
    function movedBy(key: int): bool {
        switch (key) {
        case Qt.Key_Home:
            choose(nextRow(-1, 1));
            return true;
        case Qt.Key_End:
            choose(nextRow(count, -1));
            return true;
        case Qt.Key_PageDown:
            step(shownRows);
            return true;
        case Qt.Key_PageUp:
            step(-shownRows);
            return true;
        }
        return false;
    }
}
