import QtQuick
import TarnwickBrell.Controls

/// The quiet hours on the line of a day, over midnight in two parts, and where the day is now.
Item {
    id: band

    /// When they begin, when they end, and this moment, as parts of a day.
    required property list<real> times
    readonly property real from: times[0] ?? 0
    readonly property real to: times[1] ?? 0
    readonly property bool isOverMidnight: to <= from

    implicitHeight: Theme.space4
    Accessible.ignored: true

    Rectangle {
        id: track

        width: parent.width
        height: Theme.space2
        radius: Theme.radiusBadge
        color: Theme.press
        clip: true

        Rectangle {
            x: band.from * parent.width
            width: (band.isOverMidnight ? 1 - band.from : band.to - band.from) * parent.width
            height: parent.height
            color: Theme.accentLine
        }
        Rectangle {
            visible: band.isOverMidnight
            width: band.to * parent.width
            height: parent.height
            color: Theme.accentLine
        }
    }
    Rectangle {
        x: Math.round((band.times[2] ?? 0) * (parent.width - width))
        y: -Theme.step2
        width: Theme.step2
        height: track.height + 2 * Theme.step2
        color: Theme.text1
    }
}
