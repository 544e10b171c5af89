pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

PageBar {
    id: bar

    required property SoftwarePageModel content

    page: content
    fieldHint: qsTr("Version or build")
    fieldText: content.words
    onFieldEdited: text => content.words = text

    SegmentedControl {
        label: qsTr("Channel")
        model: [qsTr("All"), qsTr("Releases"), qsTr("Betas")]
        currentIndex: bar.content.channel
        onActivated: index => bar.content.channel = index
    }
    Chip {
        visible: active
        active: bar.content.platform !== ""
        text: bar.content.platform
        onClicked: bar.content.platform = ""
        onCleared: bar.content.platform = ""
    }
    Chip {
        id: major

        active: bar.content.major !== ""
        text: active ? qsTr("Major: %1").arg(bar.content.major) : qsTr("Major: all")
        onClicked: menu.popup(major, 0, major.height + Theme.space1)
        onCleared: bar.content.major = ""

        DeskMenu {
            id: menu

            Repeater {
                model: bar.content.majors

                DeskMenuItem {
                    required property string modelData

                    text: modelData
                    checkable: true
                    checked: bar.content.major === modelData
                    onTriggered: bar.content.major = modelData
                }
            }
        }
    }
}
