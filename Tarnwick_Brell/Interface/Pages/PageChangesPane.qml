pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// When a page changed, between which two looks, and what in words.
PagePane {
    id: pane

    required property PagesPageModel content
    readonly property bool hasRow: content.row >= 0

    lead: DeskButton {
        visible: pane.hasRow
        symbol: "arrow.up.right.square"
        text: qsTr("Open page")
        onClicked: pane.content.openRow(pane.content.row)
    }
    tools: Row {
        spacing: Theme.space2

        DeskButton {
            visible: pane.content.isSuggested
            symbol: "plus"
            text: qsTr("Follow this page")
            onClicked: pane.content.followSuggested()
        }
        DeskButton {
            visible: pane.content.isFollowed
            text: qsTr("Unfollow")
            onClicked: pane.content.removePage()
        }
    }

    TableList {
        id: list

        anchors.fill: parent
        focus: true
        opens: false
        label: qsTr("What changed")
        model: pane.content.changes

        head: Column {
            width: list.width
            leftPadding: Theme.rowText
            rightPadding: Theme.rowText
            topPadding: Theme.space4
            bottomPadding: Theme.space3
            spacing: Theme.space2

            readonly property real textWidth: width - leftPadding - rightPadding

            DeskText {
                width: parent.textWidth
                lines: 3
                type: DeskText.Title
                text: pane.content.chosenName
                Accessible.role: Accessible.Heading
            }
            DeskText {
                width: parent.textWidth
                lines: 2
                type: DeskText.Secondary
                color: Theme.text3
                text: pane.content.chosenAddress
            }
            DeskText {
                width: parent.textWidth
                visible: text
                lines: 3
                type: DeskText.Secondary
                color: Theme.text2
                text: pane.content.chosenFact
            }
            DeskText {
                width: parent.textWidth
                visible: text
                lines: 3
                type: DeskText.Secondary
                color: Theme.red
                text: pane.content.problem
            }
            Row {
                visible: pane.content.revisions.length > 1
                spacing: Theme.space2

                RevisionChip {
                    label: qsTr("Earlier")
                    choices: pane.content.revisions
                    current: pane.content.earlier
                    onChosen: place => pane.content.earlier = place
                }
                RevisionChip {
                    label: qsTr("Later")
                    choices: pane.content.revisions
                    current: pane.content.later
                    onChosen: place => pane.content.later = place
                }
            }
            DeskText {
                width: parent.textWidth
                visible: text
                lines: 2
                type: DeskText.BaseStrong
                text: pane.content.summary
            }
        }
        delegate: PageChangeLine {
            width: list.width
            isCurrent: ListView.isCurrentItem && list.activeFocus
            onCompared: pane.content.comparePart(leftOutPlace)
        }
    }
}
