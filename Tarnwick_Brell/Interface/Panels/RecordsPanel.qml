import TarnwickBrell.Models

SignalsPanel {
    required property RecordsPanelModel content

    rows: content.rows
    label: qsTr("Changes of signing")
    pale: content.state === PanelModel.Stale
}
