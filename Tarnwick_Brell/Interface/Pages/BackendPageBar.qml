import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

PageBar {
    id: bar

    required property BackendPageModel content

    page: content
    fieldText: content.words
    fieldHint: qsTr("Search findings")
    onFieldEdited: text => content.words = text

    SegmentedControl {
        label: qsTr("Subject")
        model: bar.content.subjects
        currentIndex: bar.content.subject
        onActivated: index => bar.content.subject = index
    }
}
