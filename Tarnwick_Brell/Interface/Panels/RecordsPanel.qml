import TarnwickBrell.Models

SignalsPanel {
    required property RecordsContent content

    rows: content.rows
    label: qsTr("Changes of signing")
    pale: content.state === PanelContent.Stale
}
