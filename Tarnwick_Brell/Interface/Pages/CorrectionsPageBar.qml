import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

PageBar {
    id: bar

    required property CorrectionsPageModel content

    page: content
    hasRefresh: false

    buttons: DeskButton {
        enabled: bar.content.state === PanelModel.Ready
        symbol: "square.and.arrow.up"
        text: qsTr("Export")
        key: qsTr("Shift J")
        onClicked: bar.content.saveJSON()
    }
}
