pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The columns of the table of sources; each sorts it.
TableHeader {
    id: header

    required property SourcesPageModel content
    required property SourceColumns columns

    component Column: SortColumn {
        required property int order

        current: header.content.order === order
        reversed: header.content.isReversed
        onClicked: header.content.sortBy(order)
    }

    Column {
        x: Theme.gridPadding
        width: Theme.sourceSwitch
        order: SourcesPageModel.Attention
        text: qsTr("On")
        tip: qsTr("What needs attention first, then by group")
    }
    Column {
        x: header.columns.name
        width: header.columns.nameWidth
        order: SourcesPageModel.Name
        text: qsTr("Source")
    }
    Column {
        x: header.columns.group
        width: Theme.sourceGroup
        visible: header.columns.hasGroup
        order: SourcesPageModel.Group
        text: qsTr("Group")
    }
    Column {
        x: header.columns.time
        width: Theme.sourceTime
        order: SourcesPageModel.LastSuccess
        text: qsTr("Last success")
    }
    Column {
        x: header.columns.next
        width: Theme.sourceNext
        order: SourcesPageModel.NextTry
        text: qsTr("Next try")
    }
    Column {
        x: header.columns.count
        width: Theme.sourceCount
        measure: true
        order: SourcesPageModel.Stories
        text: qsTr("14 days")
        tip: qsTr("Stories of the last 14 days")
    }
    Column {
        x: header.columns.answer
        width: Theme.sourceMeasure
        visible: header.columns.hasAnswer
        measure: true
        order: SourcesPageModel.Latency
        text: qsTr("Answer")
        tip: qsTr("How long the last answer took")
    }
    Column {
        x: header.columns.size
        width: Theme.sourceMeasure
        visible: header.columns.hasSize
        measure: true
        order: SourcesPageModel.Size
        text: qsTr("Size")
    }
    ColumnName {
        x: header.columns.state
        text: qsTr("State")
    }
}
