import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The clips, and the chosen one with its citation.
PageBody {
    id: page

    required property ClipsPageModel content

    function step(by: int) {
        list.step(by);
    }
    function switchPane() {
        split.switchPane();
    }

    PageSplit {
        id: split

        anchors.fill: parent
        focus: true
        mainLeast: PageSizes.caseList
        paneWidth: Math.max(PageSizes.docketLeast, Math.round(width * PageSizes.keptPaneShare))
        pane: clip

        KeptList {
            id: list

            anchors.fill: parent
            focus: true
            content: page.content
            label: qsTr("Clips")
            onOpened: row => page.content.openRow(row)
        }
    }
    ClipPane {
        id: clip

        content: page.content
    }
}
