import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

PageBar {
    id: bar

    required property StatusPageModel content

    page: content
    fieldHint: qsTr("Filter services")
    fieldText: content.words
    onFieldEdited: text => content.words = text

    SegmentedControl {
        label: qsTr("Whose services")
        model: bar.content.audiences
        currentIndex: bar.content.audience
        onActivated: index => bar.content.audience = index
    }
    buttons: IconButton {
        symbol: "arrow.up.right.square"
        text: qsTr("Open Apple's page")
        onClicked: bar.content.openApplesPage()
    }
}
