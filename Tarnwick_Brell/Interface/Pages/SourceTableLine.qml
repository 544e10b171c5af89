pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A source in the table, and below it, when it is open, what is known of it.
FocusScope {
    id: item

    required property int index
    required property string id
    required property string name
    required property int mark
    required property bool isOn
    required property bool isFailing
    required property bool isOpen
    required property string group
    required property string lastSuccess
    required property string nextTry
    required property string stories
    required property string latency
    required property string size
    required property string stateText
    required property string spokenText
    required property SourceColumns columns
    required property SourcesPageModel content
    property bool isCurrent: false
    property bool listFocused: false

    readonly property color ink: isOn ? Theme.text2 : Theme.text3
    readonly property bool hasDetailFocus: details.activeFocus

    component Cell: DeskText {
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
        type: DeskText.Secondary
        color: item.ink
        Accessible.ignored: true
    }
    component Measure: Cell {
        horizontalAlignment: Text.AlignRight
    }

    signal chosen
    signal toggled
    signal switched(on: bool)

    function showDetails() {
        if (isOpen)
            details.setSource("SourceDetails.qml", { content: content, columns: columns });
        else
            details.source = "";
    }
    function focusRow() {
        cells.forceActiveFocus();
    }
    function focusDetails() {
        details.forceActiveFocus();
    }

    height: cells.height + (isOpen ? details.height : 0)
    onIsOpenChanged: showDetails()
    Component.onCompleted: showDetails()

    TableRow {
        id: cells

        width: parent.width
        focus: true
        spokenText: item.isOpen ? qsTr("%1, open").arg(item.spokenText) : item.spokenText
        isCurrent: item.isCurrent
        listFocused: item.listFocused
        start: item.columns.mark
        hasLine: !item.isOpen
        onChosen: item.chosen()
        onOpened: item.toggled()
        contentItem: Item {
            DeskSwitch {
                x: Theme.gridPadding
                anchors.verticalCenter: parent.verticalCenter
                neutral: true
                focusPolicy: Qt.NoFocus
                checked: item.isOn
                Accessible.name: qsTr("Fetch %1").arg(item.name)
                onToggled: {
                    item.switched(checked);
                    checked = Qt.binding(() => item.isOn);
                }
            }
            StatusMark {
                x: item.columns.mark
                anchors.verticalCenter: parent.verticalCenter
                status: {
                    switch (item.mark) {
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
                x: item.columns.name
                width: item.columns.nameWidth
                type: DeskText.SecondaryMedium
                color: item.isOn ? Theme.text1 : Theme.text3
                text: item.name
            }
            Cell {
                x: item.columns.group
                width: Theme.sourceGroup
                visible: item.columns.hasGroup
                text: item.group
            }
            Cell {
                x: item.columns.time
                width: Theme.sourceTime
                text: item.lastSuccess
            }
            Cell {
                x: item.columns.next
                width: Theme.sourceNext
                text: item.nextTry
            }
            Measure {
                x: item.columns.count
                width: Theme.sourceCount
                text: item.stories
            }
            Measure {
                x: item.columns.answer
                width: Theme.sourceMeasure
                visible: item.columns.hasAnswer
                text: item.latency
            }
            Measure {
                x: item.columns.size
                width: Theme.sourceMeasure
                visible: item.columns.hasSize
                text: item.size
            }
            Cell {
                x: item.columns.state
                width: item.columns.stateWidth
                color: item.isFailing ? Theme.red : Theme.text3
                text: item.stateText
            }
        }
    }
    // By name, because Qt 6.4 can't load a bound component.
    Loader {
        id: details

        y: cells.height
        width: parent.width
    }
    Connections {
        target: details.item as SourceDetails

        function onLeftForTable() {
            cells.forceActiveFocus();
        }
    }
}
