import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

PageBar {
    id: bar

    required property ArchivePageModel content

    page: content

    SegmentedControl {
        label: qsTr("Length of the period")
        model: [qsTr("Day"), qsTr("Week"), qsTr("Month")]
        currentIndex: bar.content.length
        onActivated: index => bar.content.length = index
    }
    buttons: DeskButton {
        text: qsTr("Today")
        onClicked: bar.content.goToToday()
    }
}
