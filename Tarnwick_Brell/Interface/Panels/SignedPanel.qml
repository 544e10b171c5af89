import TarnwickBrell.Models

SignalsPanel {
    required property SignedContent content

    rows: content.rows
    label: qsTr("Firmware that is signed")
    pale: content.state === PanelContent.Stale
}
