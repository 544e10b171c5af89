pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// How far an outlet led, up, or came after the leader, down, over the parts of a time.
Item {
    id: chart

    required property list<double> bars

    readonly property int pitch: PageSizes.raceBarWidth + PageSizes.raceBarGap

    implicitWidth: bars.length * pitch - PageSizes.raceBarGap
    implicitHeight: 2 * PageSizes.raceBarHeight
    Accessible.ignored: true

    Repeater {
        model: chart.bars

        Rectangle {
            required property double modelData
            required property int index

            x: index * chart.pitch
            y: modelData > 0 ? PageSizes.raceBarHeight - height : PageSizes.raceBarHeight
            width: PageSizes.raceBarWidth
            height: modelData === 0 ? 0 : Math.max(Theme.step2, Math.abs(modelData) * PageSizes.raceBarHeight)
            radius: Theme.step1
            color: modelData > 0 ? Theme.accent : Theme.edge
        }
    }
    Hairline {
        y: PageSizes.raceBarHeight
        width: parent.width
    }
}
