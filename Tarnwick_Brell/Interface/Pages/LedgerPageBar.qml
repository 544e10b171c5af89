import QtQuick
import TarnwickBrell.Models

/// The state of the claims that are listed.
PageBar {
    id: bar

    required property LedgerPageModel content

    page: content

    ChoiceChip {
        label: qsTr("State")
        choices: bar.content.states
        current: bar.content.stateShown
        onChosen: place => bar.content.stateShown = place
    }
}
