pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What is known of a source, below its row: how its fetches went and why they failed, its last
/// stories, and what can be changed.
FocusScope {
    id: details

    required property SourcesPageModel content
    required property SourceColumns columns

    /// Back to the table.
    signal leftForTable

    height: Math.max(facts.height, news.height) + 2 * Theme.space3
    Keys.onEscapePressed: leftForTable()
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Details of %1").arg(content.detail.name)

    Rectangle {
        anchors.fill: parent
        color: Theme.canvas

        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }
    SourceFacts {
        id: facts

        x: details.columns.name
        y: Theme.space3
        width: details.columns.half
        content: details.content
    }
    SourceNews {
        id: news

        x: facts.x + facts.width + PageSizes.columnGap
        y: Theme.space3
        width: details.columns.half
        content: details.content
    }
}
