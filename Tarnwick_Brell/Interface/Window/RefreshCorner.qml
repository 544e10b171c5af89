import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The result of the last pass and a button for the next one.
Row {
    id: corner

    required property RefreshStatus refresh

    spacing: Theme.space2

    DeskText {
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.Meta
        color: Theme.text3
        text: corner.refresh.text
    }
    IconButton {
        symbol: "arrow.clockwise"
        text: qsTr("Refresh")
        key: "r"
        visible: !corner.refresh.isRefreshing
        onClicked: corner.refresh.refresh()
    }
    IconButton {
        symbol: "xmark"
        text: qsTr("Stop refreshing")
        key: qsTr("Shift R")
        visible: corner.refresh.isRefreshing
        onClicked: corner.refresh.stop()
    }
}
