import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// At the lower edge of a page: the words to find in what it shows.
FocusScope {
    id: bar

    required property FindInPage find
    required property ActionModel actions

    signal closed

    function begin() {
        field.forceActiveFocus(Qt.ShortcutFocusReason);
        field.selectAll();
    }
    function close() {
        find.close();
        closed();
    }

    visible: find.isOpen
    height: visible ? Theme.bar : 0
    Accessible.role: Accessible.ToolBar
    Accessible.name: qsTr("Find in page")
    Keys.onEscapePressed: close()

    Rectangle {
        anchors.fill: parent
        color: Theme.raised
    }
    Hairline {
        width: parent.width
    }
    Row {
        x: Theme.gridPadding
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space1

        DeskField {
            id: field

            width: Math.min(Theme.pageSearch, bar.width / 2)
            anchors.verticalCenter: parent.verticalCenter
            focus: true
            symbol: "magnifyingglass"
            label: qsTr("Find in page")
            placeholderText: qsTr("Find in page")
            note: bar.find.summary
            text: bar.find.text
            onTextEdited: bar.find.text = text
            Accessible.description: bar.find.summary
            Keys.onReturnPressed: event => bar.find.step(event.modifiers & Qt.ShiftModifier ? -1 : 1)
            Keys.onEnterPressed: event => bar.find.step(event.modifiers & Qt.ShiftModifier ? -1 : 1)
            Keys.onPressed: event => {
                event.accepted = event.key === Qt.Key_F3;
                if (event.accepted)
                    bar.find.step(event.modifiers & Qt.ShiftModifier ? -1 : 1);
            }
        }
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            enabled: bar.find.hasMatches
            symbol: "chevron.up"
            text: qsTr("Previous match")
            key: bar.actions.keyText(DeskAction.FindPrevious)
            onClicked: bar.find.step(-1)
        }
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            enabled: bar.find.hasMatches
            symbol: "chevron.down"
            text: qsTr("Next match")
            key: bar.actions.keyText(DeskAction.FindNext)
            onClicked: bar.find.step(1)
        }
    }
    IconButton {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        symbol: "xmark"
        text: qsTr("Close")
        key: qsTr("Esc")
        onClicked: bar.close()
    }
}
