import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A stage of the scale: its point, the line from the stage before with the days between, its name
/// and its date.
Item {
    id: point

    required property int index
    required property double place
    required property string name
    required property string date
    required property string days
    required property double before
    required property int sourcing
    required property string spokenText

    required property int start
    required property real span
    property bool isCurrent: false

    signal chosen

    readonly property color ink: {
        switch (sourcing) {
        case StorySourcing.Confirmed: return Theme.greenMark;
        case StorySourcing.OnRecord: return Theme.blueMark;
        case StorySourcing.Report: return Theme.report;
        case StorySourcing.Rumor: return Theme.amberMark;
        default: return Theme.accent;
        }
    }
    readonly property real middle: start + span * place
    readonly property real from: start + span * before

    anchors.fill: parent

    Rectangle {
        x: point.from
        y: PageSizes.timelineLine - Theme.line
        width: point.middle - point.from
        height: Theme.step3
        color: point.ink
    }
    DeskText {
        x: (point.from + point.middle - width) / 2
        visible: point.middle - point.from > implicitWidth + Theme.space4
        type: DeskText.Meta
        color: Theme.text2
        text: point.days
        Accessible.ignored: true
    }
    Rectangle {
        x: point.middle - width / 2
        y: PageSizes.timelineLine - height / 2
        width: point.isCurrent ? Theme.space4 : Theme.space3
        height: width
        radius: width / 2
        color: point.ink
        border.width: point.isCurrent ? Theme.step3 : 0
        border.color: Theme.accentLine
    }
    Column {
        id: words

        readonly property real wanted: point.middle - width / 2

        x: Math.max(Theme.gridPadding, Math.min(point.width - width - Theme.space2, wanted))
        y: PageSizes.timelineLine + Theme.space3 + (point.index % 2 === 1 && point.isNear ? height : 0)

        DeskText {
            anchors.horizontalCenter: parent.horizontalCenter
            type: DeskText.SecondaryStrong
            text: point.name
            Accessible.ignored: true
        }
        DeskText {
            anchors.horizontalCenter: parent.horizontalCenter
            type: DeskText.Meta
            color: Theme.text3
            text: point.date
            Accessible.ignored: true
        }
    }
    /// Its name would cover that of the stage before.
    readonly property bool isNear: middle - from < words.width + Theme.space4

    PlainButton {
        x: point.middle - width / 2
        y: PageSizes.timelineLine - height / 2
        width: Theme.leastTarget
        height: Theme.leastTarget
        focusPolicy: Qt.NoFocus
        text: point.spokenText
        onClicked: point.chosen()
    }
}
