import QtQuick
import TarnwickBrell.Controls

/// The pane at the right of a page: a header whose lower line is that of the list's header, and a
/// body. `lead` stands at the header's left, where it has no title; `tools` at its right.
FocusScope {
    id: pane

    property string title
    property string fact
    /// It covers the list and offers the way back.
    property bool standsAlone: false
    property alias lead: leadRow.data
    property alias tools: toolRow.data
    default property alias body: bodySlot.data

    /// Back to the list.
    signal backWanted

    Accessible.role: Accessible.Grouping
    Accessible.name: title
    Keys.onEscapePressed: backWanted()
    Keys.onLeftPressed: event => {
        event.accepted = standsAlone;
        if (standsAlone)
            backWanted();
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    Item {
        id: header

        width: parent.width
        height: Theme.listHeader

        Row {
            id: leadRow

            x: back.visible ? back.x + back.width + Theme.space2 : Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.space2
        }
        IconButton {
            id: back

            x: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            visible: pane.standsAlone
            symbol: "chevron.left"
            text: qsTr("Back to the list")
            key: qsTr("Esc")
            onClicked: pane.backWanted()
        }
        DeskText {
            id: name

            x: leadRow.x + (leadRow.width > 0 ? leadRow.width + Theme.space2 : 0)
            width: Math.min(implicitWidth, toolRow.x - x - Theme.space2)
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.BaseStrong
            text: pane.title
            Accessible.role: Accessible.Heading
        }
        DeskText {
            anchors.left: name.right
            anchors.leftMargin: Theme.space2
            anchors.right: toolRow.left
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Secondary
            color: Theme.text3
            text: pane.fact
        }
        Row {
            id: toolRow

            anchors.right: parent.right
            anchors.rightMargin: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
        }
        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }
    FocusScope {
        id: bodySlot

        y: header.height
        width: parent.width
        height: parent.height - y
        focus: true
        clip: true
    }
}
