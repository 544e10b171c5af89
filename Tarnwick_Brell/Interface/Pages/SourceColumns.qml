import QtQuick
import TarnwickBrell.Controls

/// Which columns of the table of sources have room, and where they stand. The size goes first, then
/// the answer's time, then the group; names get what is left before the state does.
QtObject {
    id: columns

    required property real width

    readonly property int gap: Theme.space4
    readonly property real least: 2 * Theme.gridPadding + Theme.sourceSwitch + Theme.markBoxSidebar + Theme.sourceName
        + Theme.sourceTime + Theme.sourceNext + Theme.sourceCount + Theme.sourceState + 4 * gap
    readonly property bool hasGroup: width >= least + Theme.sourceGroup + gap
    readonly property bool hasAnswer: width >= least + Theme.sourceGroup + Theme.sourceMeasure + 2 * gap
    readonly property bool hasSize: width >= least + Theme.sourceGroup + 2 * Theme.sourceMeasure + 3 * gap

    readonly property real mark: Theme.gridPadding + Theme.sourceSwitch
    readonly property real name: mark + Theme.markBoxSidebar
    readonly property real nameWidth: Theme.sourceName + Math.min(Theme.sourceNameMore, Math.max(0, (width - least) / 6))
    readonly property real group: name + nameWidth + gap
    readonly property real time: group + (hasGroup ? Theme.sourceGroup + gap : 0)
    readonly property real next: time + Theme.sourceTime + gap
    readonly property real count: next + Theme.sourceNext
    readonly property real answer: count + Theme.sourceCount + (hasAnswer ? gap : 0)
    readonly property real size: answer + (hasAnswer ? Theme.sourceMeasure : 0) + (hasSize ? gap : 0)
    readonly property real state: size + (hasSize ? Theme.sourceMeasure : 0) + gap
    readonly property real stateWidth: width - state - Theme.gridPadding

    // The two halves of an open row.
    readonly property real half: (width - name - Theme.gridPadding - PageSizes.columnGap) / 2
}
