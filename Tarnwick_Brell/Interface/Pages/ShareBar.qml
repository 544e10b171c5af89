pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// The parts of a whole beside each other, each in the colour of the same place.
Row {
    id: bar

    required property list<double> shares
    required property list<color> inks

    spacing: PageSizes.shareBarGap
    Accessible.ignored: true

    Repeater {
        model: bar.shares

        Rectangle {
            required property double modelData
            required property int index

            visible: modelData > 0
            width: Math.max(Theme.step2, modelData * bar.width - PageSizes.shareBarGap)
            height: PageSizes.shareBarHeight
            radius: Theme.radiusBar
            color: bar.inks[index]
        }
    }
}
