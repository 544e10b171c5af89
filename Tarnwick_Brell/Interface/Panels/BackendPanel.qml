import TarnwickBrell.Models

SignalsPanel {
    required property BackendPanelModel content

    rows: content.rows
    label: qsTr("Updates that Apple offers")
    pale: content.state === PanelModel.Stale
}
