pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

PageBar {
    id: bar

    required property TimelinePageModel content

    page: content
    fieldHint: qsTr("Words of a subject")
    fieldText: content.words
    onFieldEdited: text => content.words = text

    Chip {
        id: news

        width: Math.min(implicitWidth, PageSizes.timelineSubjectMost)
        visible: bar.content.isNews
        active: true
        text: qsTr("News: %1").arg(bar.content.subjectName)
        onClicked: bar.content.clearSubject()
        onCleared: bar.content.clearSubject()
    }
    ChoiceChip {
        visible: !bar.content.isNews && choices.length > 1
        label: qsTr("Beat")
        choices: bar.content.beats
        current: bar.content.beat
        onChosen: place => bar.content.beat = place
    }
    SegmentedControl {
        visible: bar.content.canWiden
        label: qsTr("Which stories")
        model: [qsTr("This news"), qsTr("Its subject")]
        currentIndex: bar.content.isWide ? 1 : 0
        onActivated: index => bar.content.isWide = index === 1
    }

    buttons: DeskButton {
        id: exportButton

        enabled: bar.content.canExport
        symbol: "square.and.arrow.up"
        text: qsTr("Export")
        onClicked: menu.popup(exportButton, 0, exportButton.height + Theme.space1)

        DeskMenu {
            id: menu

            DeskMenuItem {
                text: qsTr("As Markdown")
                key: qsTr("Shift E")
                onTriggered: bar.content.saveMarkdown()
            }
            DeskMenuItem {
                text: qsTr("As JSON")
                key: qsTr("Shift J")
                onTriggered: bar.content.saveJSON()
            }
        }
    }
}
