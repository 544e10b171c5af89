import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What Apple's update catalogue offers, by platform, and beside it what came and went.
PageBody {
    id: page

    required property UpdatesPageModel content
    readonly property bool pale: content.state === PanelModel.Stale

    function step(by: int) {
        offers.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        mainLeast: offers.columnsLeast
        pane: PagePane {
            title: qsTr("Came and went")
            fact: page.content.changesFact

            ChangesList {
                anchors.fill: parent
                pale: page.pale
                label: qsTr("What came into the catalogue and went")
                model: page.content.changes
            }
            PageMessage {
                text: page.content.changesMessage
            }
        }

        Rectangle {
            anchors.fill: parent
            color: Theme.surface
        }
        OfferTable {
            id: offers

            anchors.fill: parent
            anchors.bottomMargin: foot.height
            focus: true
            content: page.content
            pale: page.pale
            split: split
        }
        PageMessage {
            text: page.content.nothingShown
        }
        PageFoot {
            id: foot

            anchors.bottom: parent.bottom
            width: parent.width
            text: qsTr("Days are those of New York, as in Apple's catalogue. Expiry dates move every night; these moves are not listed as changes.")
        }
    }
}
