import QtQuick
import TarnwickBrell.Controls

/// News that an outlet told before the others: what, who, by how much, and how many followed.
TableRow {
    id: line

    required property int index
    required property string storyID
    required property string title
    required property string outlet
    required property string followed
    required property string lead

    implicitHeight: PageSizes.firstWithItRow
    contentItem: Item {
        DeskText {
            id: headline

            x: Theme.gridPadding
            y: Theme.space1 + Theme.step2
            width: lead.x - x - Theme.space2
            type: DeskText.Base
            text: line.title
            Accessible.ignored: true
        }
        DeskText {
            id: lead

            anchors.right: parent.right
            anchors.rightMargin: Theme.gridPadding
            anchors.baseline: headline.baseline
            type: DeskText.BaseMedium
            text: line.lead
            Accessible.ignored: true
        }
        DeskText {
            id: who

            anchors.left: headline.left
            anchors.top: headline.bottom
            width: Math.min(implicitWidth, (parent.width - 2 * Theme.gridPadding) / 2)
            type: DeskText.MetaMedium
            color: Theme.text2
            text: line.outlet
            Accessible.ignored: true
        }
        DeskText {
            anchors.left: who.right
            anchors.baseline: who.baseline
            type: DeskText.Meta
            color: Theme.text3
            text: qsTr(" · %1").arg(line.followed)
            Accessible.ignored: true
        }
    }
}
