pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The chart of a quote. The pointer or the arrow keys read a point; the reading is above the plot,
/// so that it never covers the curve.
T.Control {
    id: chart

    required property QuoteChartModel content
    property bool pale: false

    /// The point selected by keys; -1 when none is.
    property int reached: -1
    readonly property int pointed: pointer.hovered
        ? content.nearest((pointer.point.position.x - plot.x) / plot.width) : -1
    readonly property int current: pointed >= 0 ? pointed : activeFocus ? reached : -1
    readonly property bool isRead: current >= 0 && content.points.length > 0
    readonly property chartReading read: {
        const points = content.points;  // the binding depends on it
        return content.reading(points.length > 0 ? current : -1);
    }

    /// The letter of a move was clicked.
    signal moveChosen(letter: string)
    /// The user has set the price of a rule.
    signal levelSet(rule: string, price: double)

    function step(by: int) {
        const last = content.points.length - 1;
        reached = Math.max(0, Math.min(last, (reached < 0 ? last + (by < 0 ? 1 : 0) : reached) + by));
    }

    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Chart
    Accessible.name: qsTr("Chart")
    Accessible.description: isRead ? read.spokenText : content.spokenText
    Keys.onLeftPressed: step(-1)
    Keys.onRightPressed: step(1)
    Keys.onEscapePressed: event => {
        event.accepted = reached >= 0;
        reached = -1;
    }
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            reached = event.key === Qt.Key_Home ? 0 : content.points.length - 1;
    }

    HoverHandler {
        id: pointer
    }
    TextMetrics {
        id: longest
        font: Theme.textStyles[DeskText.Meta].font
        text: chart.content.longestPrice
    }

    Item {
        id: plot
        y: Theme.chartTip + Theme.step2
        width: chart.width - Math.ceil(longest.advanceWidth) - Theme.space2
        height: chart.height - y - Theme.scaled(16) - Theme.badgeGap
        visible: chart.content.points.length > 0
    }
    DeskText {
        anchors.centerIn: parent
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        visible: text
        type: DeskText.Secondary
        lines: 3
        text: chart.content.message
        color: Theme.text3
    }

    Repeater {
        id: prices

        /// Where the plot is low only every second price is written, or fewer.
        readonly property int written: Math.max(1, Math.ceil(count * Theme.scaled(16) / Math.max(1, plot.height)))

        model: chart.content.prices

        Item {
            id: price

            required property int index
            required property real position
            required property string label

            y: plot.y + Math.round(position * plot.height)
            width: chart.width

            Hairline {
                width: plot.width
            }
            DeskText {
                anchors.right: parent.right
                y: -height / 2
                visible: price.index % prices.written === 0
                type: DeskText.Meta
                text: price.label
                color: Theme.text3
                Accessible.ignored: true
            }
        }
    }
    Repeater {
        model: chart.content.times

        DeskText {
            required property real position
            required property string label
            required property int index

            x: Math.max(0, Math.min(plot.width - width, Math.round(position * plot.width - width / 2)))
            y: chart.height - height
            visible: index % 2 === 0 || plot.width >= Theme.chartAllTimesFrom
            type: DeskText.Meta
            text: label
            color: Theme.text3
            Accessible.ignored: true
        }
    }
    Repeater {
        model: chart.content.lines

        LineChartItem {
            required property int index
            required property list<point> line

            x: plot.x
            y: plot.y - lineWidth / 2
            width: plot.width
            height: plot.height + lineWidth
            points: line
            color: index === 0 && !chart.pale ? Theme.blueMark : Theme.edge
            dashes: index === 0 ? Theme.chartDashes : Theme.chartDots
            lineWidth: Theme.sparkline
        }
    }
    LineChartItem {
        x: plot.x
        y: plot.y - lineWidth / 2
        width: plot.width
        height: plot.height + lineWidth
        points: chart.content.points
        color: chart.pale ? Theme.edge : Theme.accentText
        lineWidth: Theme.chartLine
        fillOpacity: Theme.chartFillOpacity
    }
    DashedLine {
        y: plot.y + Math.round(chart.content.baseline * plot.height)
        width: plot.width
        visible: chart.content.hasBaseline && plot.visible
    }
    Repeater {
        model: chart.content.levels

        ChartLevelLine {
            id: levelLine

            content: chart.content
            area: plot
            scaleWidth: chart.width - plot.width
            visible: plot.visible
            onLevelSet: price => chart.levelSet(levelLine.rule, price)
        }
    }
    Repeater {
        model: chart.content.marks

        Item {
            id: mark

            required property real position
            required property real level
            required property string events
            required property string letter
            required property bool rises
            required property string spokenText

            x: Math.round(position * plot.width)
            y: plot.y

            DashedLine {
                y: Math.round(mark.level * plot.height)
                height: plot.height - y
                visible: mark.events
                vertical: true
            }
            Rectangle {
                x: -(width - Theme.line) / 2
                y: plot.height - height / 2
                width: Theme.chartMark
                height: width
                radius: width / 2
                visible: mark.events
                antialiasing: true
                color: Theme.surface
                border.width: Theme.markRing
                border.color: Theme.edge
                Accessible.role: Accessible.StaticText
                Accessible.name: mark.events
            }
            Rectangle {
                x: -(width - Theme.line) / 2
                y: Math.round(mark.level * plot.height - height / 2)
                width: Theme.chartMark
                height: width
                radius: width / 2
                visible: mark.letter
                antialiasing: true
                color: chart.pale ? Theme.edge : Theme.accentText
            }
            ChartMoveMark {
                readonly property real middle: mark.level * plot.height

                // On the other side where it would leave the plot.
                readonly property bool isAbove: mark.rises ? middle >= height : middle + height > plot.height

                x: -width / 2
                y: Math.round(isAbove ? middle - height - Theme.space1 : middle + Theme.space1)
                visible: mark.letter
                letter: mark.letter
                spokenText: mark.spokenText
                onClicked: chart.moveChosen(mark.letter)
            }
        }
    }
    Item {
        id: reading
        x: Math.round(chart.read.position * plot.width)
        visible: chart.isRead && plot.visible

        Rectangle {
            width: Theme.line
            height: plot.y + plot.height
            color: Theme.text3
        }
        Rectangle {
            x: -(width - Theme.line) / 2
            y: plot.y + Math.round(chart.read.level * plot.height - height / 2)
            width: Theme.chartPoint
            height: width
            radius: width / 2
            antialiasing: true
            color: chart.pale ? Theme.edge : Theme.accentText
            border.width: Theme.focusRing
            border.color: Theme.surface
        }
    }
    Rectangle {
        readonly property real beside: reading.x - width - Theme.badgeGap

        x: beside >= 0 ? beside : Math.min(reading.x + Theme.badgeGap, chart.width - width)
        width: Math.min(words.implicitWidth + 2 * Theme.badgeGap, chart.width)
        height: Theme.chartTip
        radius: Theme.radiusBadge
        visible: reading.visible
        color: Theme.tip

        Row {
            id: words
            x: Theme.badgeGap
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.space2

            DeskText {
                type: DeskText.MetaStrong
                text: chart.read.price
                color: Theme.textOnTip
                Accessible.ignored: true
            }
            DeskText {
                type: DeskText.Meta
                text: chart.read.moment
                color: Theme.textOnTip
                Accessible.ignored: true
            }
            DeskText {
                visible: text
                type: DeskText.Meta
                text: chart.read.change
                color: Theme.textOnTip
                Accessible.ignored: true
            }
            DeskText {
                width: Math.min(implicitWidth, Math.max(Theme.chartEventMost, chart.width / 2))
                visible: text
                type: DeskText.Meta
                text: chart.read.event
                color: Theme.textOnTip
                Accessible.ignored: true
            }
        }
    }
    FocusRing {
        control: chart
        inside: true
    }
}
