import QtQuick
import TarnwickBrell.Controls

/// A correction: when it was made, what it says, and of which stories.
TableRow {
    id: line

    required property int index
    required property string made
    required property string what
    required property string stories
    required property string note
    required property string storyID

    signal removed

    implicitHeight: Theme.clusterRow
    start: Theme.gridPadding
    contentItem: Item {
        DeskText {
            id: what

            x: Theme.gridPadding
            y: Theme.rowPaddingTop
            width: made.x - x - Theme.space3
            type: DeskText.BaseMedium
            text: line.what
            Accessible.ignored: true
        }
        DeskText {
            id: stories

            x: Theme.gridPadding
            anchors.top: what.bottom
            anchors.topMargin: Theme.step2
            width: Math.min(implicitWidth, what.width)
            type: DeskText.Secondary
            color: Theme.text2
            text: line.stories
            Accessible.ignored: true
        }
        DeskText {
            anchors.left: stories.right
            anchors.baseline: stories.baseline
            width: Math.max(0, undo.x - x - Theme.space3)
            visible: line.note
            type: DeskText.Secondary
            color: Theme.text3
            text: qsTr(" · %1").arg(line.note)
            Accessible.ignored: true
        }
        DeskText {
            id: made

            anchors.right: undo.left
            anchors.rightMargin: Theme.space3
            anchors.baseline: what.baseline
            type: DeskText.Meta
            color: Theme.text3
            text: line.made
            Accessible.ignored: true
        }
        DeskButton {
            id: undo

            anchors.right: parent.right
            anchors.rightMargin: Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            focusPolicy: Qt.NoFocus
            symbol: "arrow.uturn.backward"
            text: qsTr("Take back")
            onClicked: line.removed()
        }
    }
}
