pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A source in the table.
TableRow {
    id: row

    required property string id
    required property string name
    required property int mark
    required property bool isOn
    required property bool isFailing
    required property string group
    required property string lastSuccess
    required property string nextTry
    required property string stories
    required property string latency
    required property string size
    required property string stateText
    required property SourceColumns columns

    signal switched(on: bool)

    readonly property color ink: isOn ? Theme.text2 : Theme.text3

    component Cell: DeskText {
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
        type: DeskText.Secondary
        color: row.ink
        Accessible.ignored: true
    }
    component Measure: Cell {
        horizontalAlignment: Text.AlignRight
    }

    start: columns.mark
    contentItem: Item {
        DeskSwitch {
            x: Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            neutral: true
            focusPolicy: Qt.NoFocus
            checked: row.isOn
            Accessible.name: qsTr("Fetch %1").arg(row.name)
            onToggled: {
                row.switched(checked);
                checked = Qt.binding(() => row.isOn);
            }
        }
        StatusMark {
            x: row.columns.mark
            anchors.verticalCenter: parent.verticalCenter
            status: {
                switch (row.mark) {
                case SourceMark.Fresh:
                    return StatusMark.Fresh;
                case SourceMark.Unchanged:
                    return StatusMark.Unchanged;
                case SourceMark.Failing:
                    return StatusMark.Failing;
                default:
                    return StatusMark.Never;
                }
            }
            Accessible.ignored: true
        }
        Cell {
            x: row.columns.name
            width: row.columns.nameWidth
            type: DeskText.SecondaryMedium
            color: row.isOn ? Theme.text1 : Theme.text3
            text: row.name
        }
        Cell {
            x: row.columns.group
            width: Theme.sourceGroup
            visible: row.columns.hasGroup
            text: row.group
        }
        Cell {
            x: row.columns.time
            width: Theme.sourceTime
            text: row.lastSuccess
        }
        Cell {
            x: row.columns.next
            width: Theme.sourceNext
            text: row.nextTry
        }
        Measure {
            x: row.columns.count
            width: Theme.sourceCount
            text: row.stories
        }
        Measure {
            x: row.columns.answer
            width: Theme.sourceMeasure
            visible: row.columns.hasAnswer
            text: row.latency
        }
        Measure {
            x: row.columns.size
            width: Theme.sourceMeasure
            visible: row.columns.hasSize
            text: row.size
        }
        Cell {
            x: row.columns.state
            width: row.columns.stateWidth
            color: row.isFailing ? Theme.red : Theme.text3
            text: row.stateText
        }
    }
}
