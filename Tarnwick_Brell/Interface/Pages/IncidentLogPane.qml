pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The incidents of the last 90 days, with Apple's times and the desk's.
PagePane {
    id: pane

    required property StatusPageModel content

    title: qsTr("Incident log")
    fact: content.logText

    PanelList {
        id: list

        anchors.fill: parent
        focus: true
        label: pane.title
        model: pane.content.log

        delegate: IncidentLogEntry {
            width: list.width
        }
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.gridPadding
        visible: list.count === 0
        symbol: "checkmark.circle"
        text: qsTr("No incident is known.")
        hint: qsTr("The desk logs those that Apple reports while it runs.")
    }
}
