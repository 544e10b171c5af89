import QtQuick
import TarnwickBrell.Controls

/// An action and its keys.
Item {
    id: line

    required property string title
    required property list<string> keyCaps
    required property list<string> otherKeyCaps
    required property string spokenKeys

    height: Theme.tableRow
    Accessible.role: Accessible.ListItem
    Accessible.name: qsTr("%1: %2").arg(title).arg(spokenKeys)

    DeskText {
        anchors.left: parent.left
        anchors.right: keys.left
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.text2
        text: line.title
        Accessible.ignored: true
    }
    Row {
        id: keys

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        KeyCaps {
            anchors.verticalCenter: parent.verticalCenter
            keys: line.keyCaps
        }
        DeskText {
            type: DeskText.Meta
            color: Theme.text3
            text: qsTr("or")
            visible: line.otherKeyCaps.length > 0
            Accessible.ignored: true
        }
        KeyCaps {
            anchors.verticalCenter: parent.verticalCenter
            keys: line.otherKeyCaps
            visible: line.otherKeyCaps.length > 0
        }
    }
}
