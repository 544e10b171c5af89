import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The family of devices, the choice of devices and the filter of the signing matrix.
PageBar {
    id: bar

    required property SigningPageModel content

    page: content
    fieldText: content.words
    fieldHint: qsTr("Device or build")
    onFieldEdited: text => content.words = text

    SegmentedControl {
        visible: bar.content.families.length > 1
        label: qsTr("Family of devices")
        model: bar.content.families
        currentIndex: bar.content.family
        onActivated: index => bar.content.chooseFamily(index)
    }
    DeskButton {
        text: bar.content.devicesText
        onClicked: bar.content.chooseDevices()
    }
}
