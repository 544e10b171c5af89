pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What a finding rests on and what it can mean.
PagePane {
    id: pane

    required property BackendPageModel content
    readonly property bool hasRow: content.row >= 0

    lead: DeskButton {
        visible: pane.hasRow
        symbol: "arrow.up.right.square"
        text: qsTr("Open file")
        onClicked: pane.content.openRow(pane.content.row)
    }
    tools: [
        SegmentedControl {
            anchors.verticalCenter: parent ? parent.verticalCenter : undefined
            visible: pane.content.hasFinding
            small: true
            label: qsTr("Show")
            model: [qsTr("Records"), qsTr("Lines")]
            currentIndex: pane.content.showsSent ? 1 : 0
            onActivated: index => pane.content.showsSent = index === 1
        },
        IconButton {
            visible: pane.content.hasFinding
            symbol: "doc.on.doc"
            text: qsTr("Copy lines, address and times")
            key: qsTr("Ctrl+C")
            onClicked: pane.content.copyChosen()
        }
    ]

    PageMessage {
        visible: !pane.hasRow
        text: qsTr("Nothing is selected.")
    }
    TableList {
        id: list

        anchors.fill: parent
        focus: true
        visible: pane.hasRow
        opens: false
        label: qsTr("Before and after")
        model: pane.content.lines

        head: FindingHead {
            width: list.width
            content: pane.content
        }
        foot: FindingFoot {
            width: list.width
            content: pane.content
        }
        delegate: StateLine {
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem && list.activeFocus
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
        }
    }
}
