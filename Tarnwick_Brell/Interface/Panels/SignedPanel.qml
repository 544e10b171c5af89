import TarnwickBrell.Models

SignalsPanel {
    required property SignedPanelModel content

    rows: content.rows
    label: qsTr("Firmware that is signed")
    pale: content.state === PanelModel.Stale
}
