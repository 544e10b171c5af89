pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The first ongoing problem of Apple's services, over the full width.
Item {
    id: strip

    required property StatusPanelModel status
    /// How many others there are, in words.
    required property string more

    implicitHeight: list.contentHeight
    visible: status.problemCount > 0

    ListView {
        id: list

        anchors.fill: parent
        interactive: false
        model: strip.status.problems
        delegate: ProblemCard {
            required property int index

            width: strip.width
            height: visible ? implicitHeight : 0
            visible: index === 0
        }
    }
    DeskText {
        anchors.right: parent.right
        anchors.rightMargin: Theme.chipPadding
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space2
        type: DeskText.Meta
        text: strip.more
        color: Theme.text2
    }
}
