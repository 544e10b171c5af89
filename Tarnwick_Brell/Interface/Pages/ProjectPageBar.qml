import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Which members of a project are shown.
PageBar {
    id: bar

    required property ProjectPageModel content

    page: content
    hasRefresh: false

    DeskButton {
        symbol: "chevron.left"
        text: qsTr("All projects")
        look: DeskButton.Quiet
        onClicked: bar.content.showProjects()
    }
    SegmentedControl {
        label: qsTr("What of the project is shown")
        model: bar.content.subsets
        currentIndex: bar.content.subset
        onActivated: index => bar.content.subset = index
    }
    Chip {
        text: qsTr("To check")
        active: bar.content.onlyToCheck
        onClicked: bar.content.onlyToCheck = !bar.content.onlyToCheck
        onCleared: bar.content.onlyToCheck = false
    }
    buttons: DeskButton {
        symbol: "plus"
        text: qsTr("Note")
        tip: qsTr("Write a note for this project")
        onClicked: bar.content.addNote()
    }
}
