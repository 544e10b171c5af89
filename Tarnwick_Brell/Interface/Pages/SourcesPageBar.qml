import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Which sources the table shows, and what can be done with them all.
PageBar {
    id: bar

    required property SourcesPageModel content
    readonly property bool isWide: width > Theme.sourcesBarFrom

    page: content
    fieldHint: qsTr("Filter sources")
    fieldText: content.words
    onFieldEdited: text => bar.content.words = text
    hasRefresh: isWide
    buttons: [
        DeskButton {
            id: lists

            symbol: "arrow.up.arrow.down"
            text: qsTr("OPML")
            tip: qsTr("Import or export a list of feeds")
            onClicked: menu.popup(lists, 0, lists.height + Theme.space1)
            Accessible.role: Accessible.ButtonMenu

            DeskMenu {
                id: menu

                DeskMenuItem {
                    symbol: "square.and.arrow.down"
                    text: qsTr("Import a list of feeds…")
                    key: qsTr("Ctrl Shift I")
                    onTriggered: bar.content.sheetWanted("import-outlines")
                }
                DeskMenuItem {
                    symbol: "square.and.arrow.up"
                    text: qsTr("Export sources…")
                    key: qsTr("Ctrl Shift E")
                    onTriggered: bar.content.sheetWanted("export-outlines")
                }
            }
        },
        IconButton {
            visible: bar.isWide
            symbol: "doc.on.doc"
            text: qsTr("Copy the report of these sources")
            onClicked: bar.content.perform(DeskAction.CopySourceReport)
        },
        DeskButton {
            visible: bar.isWide
            look: DeskButton.Primary
            symbol: "plus"
            text: qsTr("Add source")
            key: qsTr("Ctrl Shift N")
            onClicked: bar.content.sheetWanted("add-source")
        },
        IconButton {
            visible: !bar.isWide
            symbol: "plus"
            text: qsTr("Add a source")
            key: qsTr("Ctrl Shift N")
            onClicked: bar.content.sheetWanted("add-source")
        }
    ]

    SegmentedControl {
        label: qsTr("Which sources are shown")
        model: bar.content.subsets
        currentIndex: bar.content.subset
        onActivated: index => bar.content.subset = index
    }
    ChoiceChip {
        label: qsTr("Group")
        choices: bar.content.groups
        current: bar.content.group
        onChosen: place => bar.content.group = place
    }
}
