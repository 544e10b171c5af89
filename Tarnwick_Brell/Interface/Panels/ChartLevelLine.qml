import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A rule on the price as a line across a chart. Dragged, or moved with the arrow keys, it shows the
/// new price; letting it go or Enter sets it, Esc puts it back.
T.Control {
    id: line

    required property string rule
    required property string name
    required property double price
    required property double position
    required property int side
    required property bool isOn

    required property QuoteChartModel content
    required property Item area
    /// The column of prices at the right of the plot.
    required property real scaleWidth

    /// The price that is being set; none below 0.
    property double pending: -1
    readonly property bool isSetting: pending >= 0
    readonly property double shownPosition: {
        const points = content.points;  // the scale may have changed with them
        return isSetting && points.length > 0 ? content.positionOf(pending) : position;
    }
    // What a screen reader knows of a slider.
    readonly property double value: isSetting ? pending : price

    /// The user has set it.
    signal levelSet(price: double)

    function step(by: int) {
        pending = content.stepped(isSetting ? pending : price, by);
    }
    function cancel() {
        pending = -1;
    }
    function finish() {
        const chosen = pending;
        pending = -1;
        if (chosen >= 0)
            levelSet(chosen);
    }

    x: area.x
    y: area.y + Math.round(shownPosition * area.height - height / 2)
    width: area.width + scaleWidth
    height: Theme.control
    focusPolicy: Qt.StrongFocus
    activeFocusOnTab: true
    Accessible.role: Accessible.Slider
    Accessible.name: qsTr("%1, level of a price rule").arg(name)
    Accessible.description: isOn ? content.levelText(value) : qsTr("%1, off").arg(content.levelText(value))
    Accessible.onIncreaseAction: step(1)
    Accessible.onDecreaseAction: step(-1)
    Accessible.onPressAction: finish()
    onActiveFocusChanged: if (!activeFocus)
        cancel()

    Keys.onShortcutOverride: event => {
        const moves = event.key === Qt.Key_Up || event.key === Qt.Key_Down || event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown;
        const ends = event.key === Qt.Key_Escape || event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
        event.accepted = event.modifiers === Qt.NoModifier && (moves || isSetting && ends);
    }
    Keys.onUpPressed: step(1)
    Keys.onDownPressed: step(-1)
    Keys.onReturnPressed: event => end(event, true)
    Keys.onEnterPressed: event => end(event, true)
    Keys.onEscapePressed: event => end(event, false)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown;
        if (event.accepted)
            step(event.key === Qt.Key_PageUp ? 10 : -10);
    }

    function end(event: KeyEvent, isSet: bool) {
        event.accepted = isSetting;
        if (isSet)
            finish();
        else
            cancel();
    }

    MouseArea {
        id: grip

        /// Where in the line it was taken.
        property real taken: 0
        property bool moves: false

        anchors.fill: parent
        cursorShape: Qt.SizeVerCursor
        preventStealing: true
        onPressed: mouse => {
            line.forceActiveFocus(Qt.MouseFocusReason);
            // A line at the edge stands for a price further away: it is taken where the pointer is.
            taken = line.side === 0 ? mouse.y - line.height / 2 : 0;
            moves = false;
        }
        onPositionChanged: mouse => {
            if (!moves && Math.abs(mouse.y - line.height / 2 - taken) < Theme.space1)
                return;
            moves = true;
            const at = line.mapToItem(line.area, 0, mouse.y - taken).y;
            line.pending = line.content.priceAt(at / line.area.height);
        }
        onReleased: if (moves)
            line.finish()
        onCanceled: line.cancel()
    }
    Rectangle {
        y: Math.round((line.height - height) / 2)
        width: line.area.width
        height: line.isSetting || line.activeFocus ? Theme.focusRing : Theme.line
        color: line.isOn ? Theme.amberMark : Theme.edge
    }
    Rectangle {
        anchors.bottom: parent.verticalCenter
        anchors.bottomMargin: Theme.focusRing
        visible: line.area.width > Theme.chartAllTimesFrom
        width: Math.min(words.implicitWidth + 2 * Theme.badgeGap, line.area.width / 2)
        height: Theme.badge
        radius: Theme.radiusBadge
        color: line.isOn ? Theme.amberSoft : Theme.hover

        Row {
            id: words

            x: Theme.badgeGap
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.space1

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                name: line.isOn ? "bell" : "bell.slash"
                size: Theme.iconInMeta
                color: line.isOn ? Theme.amber : Theme.text2
            }
            DeskText {
                width: Math.min(implicitWidth, line.area.width / 2 - 2 * Theme.badgeGap - Theme.iconInMeta - Theme.space1)
                type: DeskText.Meta
                text: line.name
                color: line.isOn ? Theme.amber : Theme.text2
                Accessible.ignored: true
            }
        }
    }
    Rectangle {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: level.implicitWidth + 2 * Theme.badgeGap
        height: Theme.badge
        radius: Theme.radiusBadge
        color: line.isOn ? Theme.amberSoft : Theme.hover
        border.width: line.visualFocus || line.isSetting ? Theme.focusRing : 0
        border.color: Theme.accent

        DeskText {
            id: level

            anchors.centerIn: parent
            type: DeskText.MetaMedium
            text: (line.isSetting || line.side === 0 ? "" : line.side > 0 ? "↑ " : "↓ ") + line.content.levelText(line.value)
            color: line.isOn ? Theme.amber : Theme.text2
            Accessible.ignored: true
        }
    }
}
