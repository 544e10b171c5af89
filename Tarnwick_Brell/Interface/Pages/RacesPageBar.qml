import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The time and the sourcing of the races.
PageBar {
    id: bar

    required property RacesPageModel content

    page: content

    SegmentedControl {
        label: qsTr("Time")
        model: [qsTr("7 days"), qsTr("30 days"), qsTr("90 days")]
        currentIndex: bar.content.span
        onActivated: index => bar.content.span = index
    }
    ChoiceChip {
        label: qsTr("Sourcing")
        choices: bar.content.sourcings
        current: bar.content.sourcing
        onChosen: place => bar.content.sourcing = place
    }
}
