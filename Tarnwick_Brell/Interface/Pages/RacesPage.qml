pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Who led how often, and beside it how two picked outlets did against each other.
PageBody {
    id: page

    required property RacesPageModel content

    function step(by: int) {
        table.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        mainLeast: table.columnsLeast
        pane: PagePane {
            title: page.content.pairTitle ? page.content.pairTitle : qsTr("Two outlets")

            PageMessage {
                text: page.content.pairMessage
            }
            Column {
                id: score

                x: Theme.gridPadding
                y: Theme.space4
                width: parent.width - 2 * x
                visible: page.content.pairTitle !== ""
                spacing: Theme.space1

                Row {
                    spacing: Theme.space2

                    DeskText {
                        id: figures
                        type: DeskText.Figure
                        text: page.content.score
                    }
                    DeskText {
                        anchors.baseline: figures.baseline
                        width: Math.min(implicitWidth, score.width - figures.width - Theme.space2)
                        type: DeskText.Secondary
                        color: Theme.text2
                        text: page.content.scoreDetail
                    }
                }
                DeskText {
                    width: parent.width
                    type: DeskText.Secondary
                    lines: 2
                    color: Theme.text2
                    text: page.content.medians
                }
            }
            TableList {
                id: races

                anchors.fill: parent
                anchors.topMargin: score.y + score.height + Theme.space3
                visible: score.visible
                focus: true
                label: qsTr("Subjects that both outlets covered")
                model: page.content.races
                onOpened: row => page.content.openRace(row)

                delegate: TableRow {
                    id: race

                    required property string title
                    required property string outcome
                    required property string detail
                    required property bool firstLed
                    required property string storyID
                    required property int index

                    width: races.width
                    implicitHeight: PageSizes.pairRaceRow
                    isCurrent: index === races.currentIndex
                    listFocused: races.activeFocus
                    onChosen: {
                        races.choose(index);
                        races.forceActiveFocus(Qt.MouseFocusReason);
                    }
                    onOpened: page.content.openRace(index)

                    contentItem: Item {
                        DeskText {
                            id: outcome
                            x: parent.width - width - Theme.gridPadding
                            y: Theme.space2
                            width: Math.min(implicitWidth, parent.width / 2)
                            type: DeskText.SecondaryMedium
                            color: race.firstLed ? Theme.accentText : Theme.text1
                            text: race.outcome
                            Accessible.ignored: true
                        }
                        DeskText {
                            x: Theme.gridPadding
                            y: Theme.space2
                            width: outcome.x - x - Theme.space2
                            type: DeskText.Secondary
                            text: race.title
                            Accessible.ignored: true
                        }
                        DeskText {
                            x: Theme.gridPadding
                            anchors.bottom: parent.bottom
                            anchors.bottomMargin: Theme.space2
                            width: parent.width - 2 * x
                            type: DeskText.Meta
                            color: Theme.text3
                            text: race.detail
                            Accessible.ignored: true
                        }
                    }
                }
            }
        }

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        RaceTable {
            id: table

            anchors.fill: parent
            anchors.bottomMargin: foot.height
            focus: true
            content: page.content
            split: split
        }
        PageFoot {
            id: foot

            anchors.bottom: parent.bottom
            width: parent.width
            text: qsTr("Enter picks an outlet. Days without a time and equal times make no lead; a full bar is two hours.")
        }
    }
}
