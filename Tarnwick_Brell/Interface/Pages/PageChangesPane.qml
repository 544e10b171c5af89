pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// When a page changed, between which two looks, and what in words.
PagePane {
    id: pane

    required property PagesPageModel content
    readonly property bool hasRow: content.row >= 0
    readonly property bool hasComparison: content.revisions.length > 1

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
        SegmentedControl {
            visible: pane.hasComparison
            label: qsTr("How the changes are shown")
            model: [qsTr("Changes"), qsTr("Side by side"), qsTr("Full text")]
            currentIndex: pane.content.view
            onActivated: index => pane.content.view = index
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
            RevisionStrip {
                width: parent.textWidth
                visible: pane.content.revisions.length > 2
                content: pane.content
            }
            Row {
                visible: pane.hasComparison
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
            Item {
                width: parent.textWidth
                height: Math.max(summary.height, choices.visible ? choices.height : 0)

                DeskText {
                    id: summary

                    anchors.verticalCenter: parent.verticalCenter
                    width: choices.visible ? choices.x - Theme.space2 : parent.width
                    lines: 2
                    type: DeskText.BaseStrong
                    text: pane.content.summary
                }
                Row {
                    id: choices

                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    visible: pane.hasComparison && pane.content.view !== ChangesView.FullText
                    spacing: Theme.space2

                    ChoiceChip {
                        label: pane.content.filters[0]
                        choices: pane.content.filters
                        current: pane.content.filter
                        onChosen: place => pane.content.filter = place
                    }
                    SegmentedControl {
                        small: true
                        label: qsTr("Order of the changes")
                        model: [qsTr("Heaviest first"), qsTr("As in the page")]
                        currentIndex: pane.content.inPageOrder ? 1 : 0
                        onActivated: index => pane.content.inPageOrder = index === 1
                    }
                }
            }
        }
        delegate: PageChangeLine {
            width: list.width
            isCurrent: ListView.isCurrentItem && list.activeFocus
            onCompared: pane.content.comparePart(leftOutPlace)
        }
    }
}
