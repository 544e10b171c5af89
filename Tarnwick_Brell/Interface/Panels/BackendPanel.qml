import TarnwickBrell.Models

SignalsPanel {
    required property BackendContent content

    rows: content.rows
    label: qsTr("Updates that Apple offers")
    pale: content.state === PanelContent.Stale
}
