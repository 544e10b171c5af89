import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// How the last pass went, and the next one at a click.
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
        enabled: !corner.refresh.isRefreshing
        onClicked: corner.refresh.refresh()
    }
}
