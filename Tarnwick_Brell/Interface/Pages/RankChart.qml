pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The ranks of an app over three months, read by the pointer or by the arrow keys.
T.Control {
    id: chart

    required property ChartsPageModel content
    property bool pale: false

    readonly property int days: content.curve.length
    /// The day selected by keys; -1 when none is.
    property int reached: -1
    readonly property int pointed: pointer.hovered
        ? Math.max(0, Math.min(days - 1, Math.round(pointer.point.position.x / plot.width * (days - 1)))) : -1
    readonly property int current: pointed >= 0 ? pointed : activeFocus ? reached : -1
    readonly property bool isRead: current >= 0 && current < days
    readonly property string reading: {
        const curve = content.curve;  // the binding depends on it
        return content.dayText(curve.length > 0 ? current : -1);
    }

    function step(by: int) {
        reached = Math.max(0, Math.min(days - 1, (reached < 0 ? days - 1 - by : reached) + by));
    }

    implicitHeight: PageSizes.rankChartHeight + Theme.chartTip + Theme.space6
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Chart
    Accessible.name: qsTr("Ranks of three months")
    Accessible.description: isRead ? reading : content.summary
    Keys.onLeftPressed: step(-1)
    Keys.onRightPressed: step(1)
    Keys.onEscapePressed: event => {
        event.accepted = reached >= 0;
        reached = -1;
    }
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            reached = event.key === Qt.Key_Home ? 0 : days - 1;
    }

    HoverHandler {
        id: pointer
    }
    Item {
        id: plot
        y: Theme.chartTip + Theme.space1
        width: chart.width - PageSizes.rankScaleColumn
        height: PageSizes.rankChartHeight

        Repeater {
            model: chart.content.scale

            Item {
                id: rank

                required property string modelData
                required property int index

                y: Math.round(index * plot.height / 4)
                width: chart.width

                Hairline {
                    width: plot.width
                }
                DeskText {
                    anchors.right: parent.right
                    y: -height / 2
                    type: DeskText.Meta
                    text: rank.modelData
                    color: Theme.text3
                    Accessible.ignored: true
                }
            }
        }
        RankCurve {
            anchors.fill: parent
            levels: chart.content.curve
            lineWidth: Theme.chartLine
            color: chart.pale ? Theme.edge : Theme.accentText
        }
        Rectangle {
            x: Math.round(chart.current / Math.max(1, chart.days - 1) * plot.width)
            y: -Theme.space1
            width: Theme.line
            height: parent.height + Theme.space1
            visible: chart.isRead
            color: Theme.text3
        }
    }
    DeskText {
        anchors.bottom: parent.bottom
        type: DeskText.Meta
        text: chart.content.firstDay
        color: Theme.text3
        Accessible.ignored: true
    }
    DeskText {
        anchors.bottom: parent.bottom
        x: plot.width - width
        type: DeskText.Meta
        text: qsTr("Today")
        color: Theme.text3
        Accessible.ignored: true
    }
    Rectangle {
        x: Math.max(0, Math.min(chart.width - width, chart.current / Math.max(1, chart.days - 1) * plot.width - width / 2))
        width: Math.min(words.implicitWidth + 2 * Theme.badgeGap, chart.width)
        height: Theme.chartTip
        radius: Theme.radiusBadge
        visible: chart.isRead
        color: Theme.tip

        DeskText {
            id: words
            x: Theme.badgeGap
            width: parent.width - 2 * x
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            text: chart.reading
            color: Theme.textOnTip
            Accessible.ignored: true
        }
    }
    FocusRing {
        control: chart
        inside: true
    }
}
