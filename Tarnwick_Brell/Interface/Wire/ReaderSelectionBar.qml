import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What can be done with the text that is selected in the reader.
Rectangle {
    id: bar

    required property string selection
    required property ActionModel actions

    signal cleared

    implicitHeight: Theme.toolbar
    radius: Theme.radiusPanel
    color: Theme.raised
    border.width: Theme.line
    border.color: Theme.border
    Accessible.role: Accessible.ToolBar
    Accessible.name: qsTr("Selected text")

    Symbol {
        id: mark

        x: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        name: "scissors"
        color: Theme.text2
    }
    DeskText {
        anchors.left: mark.right
        anchors.leftMargin: Theme.space2
        anchors.right: buttons.left
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Secondary
        color: Theme.text2
        text: qsTr("“%1”").arg(bar.selection.replace(/\s+/g, " "))
    }
    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        DeskButton {
            look: DeskButton.Primary
            focusPolicy: Qt.NoFocus
            text: qsTr("Clip")
            key: bar.actions.keyText(DeskAction.ClipStory)
            onClicked: bar.actions.trigger(DeskAction.ClipStory)
        }
        DeskButton {
            focusPolicy: Qt.NoFocus
            visible: bar.width > Theme.readerActionsLeast
            text: qsTr("Copy with citation")
            key: bar.actions.keyText(DeskAction.CopyCitation)
            onClicked: bar.actions.trigger(DeskAction.CopyCitation)
        }
        IconButton {
            focusPolicy: Qt.NoFocus
            symbol: "xmark"
            text: qsTr("Select nothing")
            onClicked: bar.cleared()
        }
    }
}
