pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What outlets claimed before Apple spoke and what became of it, and beside it the claims of one.
PageBody {
    id: page

    required property LedgerPageModel content
    readonly property list<color> inks: [Theme.text2, Theme.green, Theme.red, Theme.text3]

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
        paneWidth: PageSizes.paneTrade
        pane: PagePane {
            title: page.content.claimsTitle
            fact: page.content.claimsFact

            PageMessage {
                text: page.content.nothingShown
            }
            TableList {
                id: claims

                anchors.fill: parent
                focus: true
                label: page.content.claimsTitle
                model: page.content.claims
                onOpened: row => page.content.openClaim(row)

                delegate: TableRow {
                    id: claim

                    required property string title
                    required property string detail
                    required property string state
                    required property int tone
                    required property string storyID
                    required property int index

                    width: claims.width
                    implicitHeight: PageSizes.claimRow
                    isCurrent: index === claims.currentIndex
                    listFocused: claims.activeFocus
                    onChosen: {
                        claims.choose(index);
                        claims.forceActiveFocus(Qt.MouseFocusReason);
                    }
                    onOpened: page.content.openClaim(index)

                    contentItem: Item {
                        DeskText {
                            x: Theme.gridPadding
                            y: Theme.space2
                            width: parent.width - 2 * x
                            type: DeskText.Secondary
                            text: claim.title
                            Accessible.ignored: true
                        }
                        DeskText {
                            x: Theme.gridPadding
                            anchors.bottom: parent.bottom
                            anchors.bottomMargin: Theme.space2
                            width: state.x - x - Theme.space2
                            type: DeskText.Meta
                            color: Theme.text3
                            text: claim.detail
                            Accessible.ignored: true
                        }
                        DeskText {
                            id: state
                            x: parent.width - width - Theme.gridPadding
                            anchors.bottom: parent.bottom
                            anchors.bottomMargin: Theme.space2
                            type: DeskText.MetaMedium
                            color: page.inks[claim.tone]
                            text: claim.state
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
        LedgerTable {
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
            text: qsTr("Each claim is followed for a year. It is confirmed or denied only by a story of the same subject. With fewer than ten claims no shares are shown.")
        }
    }
}
