import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The search and the filters over the list.
Item {
    id: bar

    required property StoryListController stories
    readonly property alias searchField: search

    signal leftForList

    implicitWidth: row.implicitWidth

    OverflowRow {
        id: row

        x: Theme.space3
        width: bar.width - x
        height: parent.height

        SearchField {
            id: search

            width: Math.max(Theme.searchLeast, Math.min(Theme.searchWidth, bar.width - chips.implicitWidth - 2 * Theme.space3))
            placeholderText: qsTr("Search the wire")
            key: qsTr("Ctrl F")
            text: bar.stories.searchText
            onTextEdited: bar.stories.searchText = text
            onEscaped: bar.leftForList()
            Keys.onDownPressed: bar.leftForList()
            Keys.onReturnPressed: bar.leftForList()
        }
        Row {
            id: chips

            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.space2

            FilterChip {
                choices: bar.stories.kinds
            }
            FilterChip {
                choices: bar.stories.sourcings
            }
            FilterChip {
                choices: bar.stories.sources
            }
            Chip {
                text: bar.stories.setAsideText
                active: bar.stories.showsSetAside
                onClicked: bar.stories.showsSetAside = !bar.stories.showsSetAside
                onCleared: bar.stories.showsSetAside = false
                Accessible.description: qsTr("Deals, reviews, roundups, sponsored stories and ads")
            }
        }
    }

    Connections {
        target: bar.stories

        function onSearchChanged() {
            if (search.text !== bar.stories.searchText)
                search.text = bar.stories.searchText;
        }
    }
}
