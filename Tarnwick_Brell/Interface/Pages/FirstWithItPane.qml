pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Which outlets had news first lately, and how often each of them had.
PagePane {
    id: pane

    required property TopStoriesPageModel content

    title: qsTr("Who had it first")
    fact: qsTr("7 days")

    TableList {
        id: list

        anchors.fill: parent
        focus: true
        label: pane.title
        model: pane.content.scoops
        onOpened: row => pane.content.openScoop(row)

        head: Item {
            width: list.width
            height: list.count === 0 ? nothing.implicitHeight + 2 * Theme.space4 : 0

            DeskText {
                id: nothing

                x: Theme.gridPadding
                y: Theme.space4
                width: parent.width - 2 * x
                visible: list.count === 0
                lines: 3
                type: DeskText.Secondary
                color: Theme.text3
                text: qsTr("Nobody was first with anything in the last 7 days, as far as the times say.")
            }
        }
        delegate: FirstWithItLine {
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: pane.content.openScoop(index)
        }
        foot: Column {
            width: list.width
            topPadding: Theme.space3
            bottomPadding: Theme.space4

            SectionLabel {
                width: parent.width
                visible: bars.count > 0
                text: qsTr("Firsts, last 30 days")
                detail: pane.content.firstsText
            }
            Repeater {
                id: bars

                model: pane.content.firsts

                FirstsBarLine {
                    width: list.width
                }
            }
            Item {
                width: parent.width
                height: Theme.space3
            }
            DeskButton {
                x: Theme.gridPadding
                symbol: "flag.pattern.checkered"
                text: qsTr("All races")
                onClicked: pane.content.openRaces()
            }
            Item {
                width: parent.width
                height: Theme.space3
            }
            DeskText {
                x: Theme.gridPadding
                width: parent.width - 2 * x
                lines: 4
                type: DeskText.Meta
                color: Theme.text3
                text: qsTr("Day-only and equal times never make a lead. Apple’s own announcements are not scoops.")
            }
        }
    }
}
