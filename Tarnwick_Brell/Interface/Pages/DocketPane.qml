pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A case: why it is followed, and the entries of its docket.
PagePane {
    id: pane

    required property RecordsPageModel content
    readonly property bool hasRow: content.row >= 0

    function step(by: int) {
        list.step(by);
    }

    lead: DeskButton {
        visible: pane.hasRow && pane.content.sheetLink !== ""
        symbol: "arrow.up.right.square"
        text: pane.content.sheetLinkText
        onClicked: pane.content.openRow(pane.content.row)
    }
    tools: Row {
        visible: pane.hasRow
        spacing: Theme.space2

        DeskButton {
            visible: pane.content.canFollow
            symbol: "plus"
            text: qsTr("Follow this case")
            onClicked: pane.content.followCase()
        }
        DeskButton {
            visible: pane.content.isFollowed
            text: qsTr("Unfollow")
            onClicked: pane.content.unfollowCase()
        }
    }

    PageMessage {
        visible: !pane.hasRow
        text: qsTr("Paste the address of a docket at CourtListener above the list to follow its case.")
    }
    TableList {
        id: list

        anchors.fill: parent
        focus: true
        visible: pane.hasRow
        label: qsTr("Entries")
        model: pane.content.entries
        onOpened: row => pane.content.openEntry(row)

        head: Column {
            width: list.width

            RecordHead {
                width: parent.width
                content: pane.content
            }
            DeskField {
                id: note

                x: Theme.rowText
                width: parent.width - 2 * x
                visible: pane.content.isFollowed
                outlined: true
                symbol: "pencil"
                placeholderText: qsTr("Why I follow it")
                text: pane.content.caseNote
                onEditingFinished: pane.content.setCaseNote(text)
                Keys.onEscapePressed: {
                    text = pane.content.caseNote;
                    list.forceActiveFocus();
                }
            }
            Item {
                width: parent.width
                height: Theme.listHeader
                visible: pane.content.entriesFact !== ""

                DeskText {
                    id: title

                    x: Theme.rowText
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.BaseStrong
                    text: qsTr("Entries")
                    Accessible.role: Accessible.Heading
                }
                DeskText {
                    anchors.left: title.right
                    anchors.leftMargin: Theme.space2
                    anchors.verticalCenter: parent.verticalCenter
                    width: choice.x - x - Theme.space2
                    type: DeskText.Secondary
                    color: Theme.text3
                    text: pane.content.entriesFact
                }
                SegmentedControl {
                    id: choice

                    anchors.right: parent.right
                    anchors.rightMargin: Theme.rowText
                    anchors.verticalCenter: parent.verticalCenter
                    small: true
                    label: qsTr("Entries")
                    model: [qsTr("What matters"), qsTr("All")]
                    currentIndex: pane.content.showsRoutine ? 1 : 0
                    onActivated: index => pane.content.showsRoutine = index === 1
                }
            }
        }
        delegate: EntryLine {
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: pane.content.openEntry(index)
        }
    }
}
