import QtQuick
import TarnwickBrell.Controls

/// The palette's key hints and number of results.
Item {
    id: foot

    property string countText

    height: Theme.bar

    component Hint: Row {
        property alias key: cap.text
        property alias text: label.text

        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        KeyCap {
            id: cap

            anchors.verticalCenter: parent.verticalCenter
        }
        DeskText {
            id: label

            type: DeskText.Meta
            color: Theme.text3
        }
    }

    Hairline { width: parent.width }
    Row {
        x: Theme.space5
        height: parent.height
        spacing: Theme.space5

        Hint {
            key: "↑↓"
            text: qsTr("choose")
        }
        Hint {
            key: qsTr("Enter")
            text: qsTr("run")
        }
    }
    DeskText {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space5
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Meta
        color: Theme.text3
        text: foot.countText
    }
}
