import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The search and the filters over the list.
Item {
    id: bar

    required property WirePage page
    readonly property alias searchField: search

    signal leftForList

    implicitWidth: row.implicitWidth

    Row {
        id: row

        x: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        SearchField {
            id: search

            width: Math.max(Theme.searchLeast, Math.min(Theme.searchWidth, bar.width - chips.implicitWidth - 2 * Theme.space3))
            placeholderText: qsTr("Search the wire")
            key: qsTr("Ctrl F")
            text: bar.page.searchText
            onTextEdited: bar.page.searchText = text
            onEscaped: bar.leftForList()
            Keys.onDownPressed: bar.leftForList()
            Keys.onReturnPressed: bar.leftForList()
        }
        Row {
            id: chips

            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.space2

            FilterChip {
                choices: bar.page.kinds
            }
            FilterChip {
                choices: bar.page.sourcings
            }
            FilterChip {
                choices: bar.page.sources
            }
            Chip {
                text: bar.page.showsSetAside ? qsTr("Set aside: shown") : qsTr("Set aside: hidden")
                active: bar.page.showsSetAside
                onClicked: bar.page.showsSetAside = !bar.page.showsSetAside
                onCleared: bar.page.showsSetAside = false
                Accessible.description: qsTr("Deals, reviews, roundups, sponsored stories and ads")
            }
        }
    }

    Connections {
        target: bar.page

        function onSearchChanged() {
            if (search.text !== bar.page.searchText)
                search.text = bar.page.searchText;
        }
    }
}
