import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Which builds Apple signs for which devices, and beside it the changes.
PageBody {
    id: page

    required property SigningPageModel content
    readonly property bool pale: content.state === PanelModel.Stale

    function step(by: int) {
        matrix.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        mainLeast: PageSizes.signingDeviceLeast + 5 * PageSizes.signingColumn
        pane: PagePane {
            title: qsTr("Changes")
            fact: page.content.changesFact

            ChangesList {
                anchors.fill: parent
                pale: page.pale
                label: qsTr("Changes of signing")
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
        SigningTable {
            id: matrix

            anchors.fill: parent
            anchors.bottomMargin: legend.height
            focus: true
            content: page.content
            pale: page.pale
            split: split
        }
        PageMessage {
            text: page.content.nothingShown
        }
        SigningLegend {
            id: legend

            anchors.bottom: parent.bottom
            width: parent.width
        }
    }
}
