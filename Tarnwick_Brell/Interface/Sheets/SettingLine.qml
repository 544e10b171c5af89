import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A setting: what it is and does at the left, its control at the right. A changed one can be set
/// back. A fact has no control.
Item {
    id: line

    signal switched(on: bool)
    signal chosen(choice: int)
    signal dayToggled(day: int)
    signal entered(text: string)
    signal reset
    signal acted

    required property int index
    required property string title
    required property string meaning
    required property string section
    required property int control
    required property string value
    required property bool isNumber
    required property bool isOn
    required property string action
    required property var choices
    required property int choice
    required property list<bool> days
    required property list<real> band
    required property bool isChanged
    required property string standard
    required property string problem

    readonly property string note: problem || (section ? section + " · " : "") + standard

    implicitHeight: Math.max(words.height, controls.height) + (band.visible ? band.height : 0) + 2 * Theme.space2

    Hairline {
        width: parent.width
    }
    QuietBand {
        id: band

        anchors.bottom: parent.bottom
        width: parent.width
        visible: line.band.length > 0
        times: line.band
    }
    Row {
        id: controls

        anchors.right: parent.right
        anchors.verticalCenter: words.verticalCenter
        spacing: Theme.space1

        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            visible: line.isChanged
            symbol: "arrow.uturn.backward"
            text: qsTr("Back to the default: %1").arg(line.title)
            onClicked: line.reset()
        }
        DeskSwitch {
            anchors.verticalCenter: parent.verticalCenter
            visible: line.control === SettingControl.Switch
            checked: line.isOn
            Accessible.name: line.title
            Accessible.description: line.meaning
            onToggled: line.switched(checked)
        }
        SegmentedControl {
            raised: true
            anchors.verticalCenter: parent.verticalCenter
            visible: line.control === SettingControl.Choice
            label: line.title
            model: line.choices
            currentIndex: line.choice
            onActivated: index => line.chosen(index)
        }
        DayChips {
            anchors.verticalCenter: parent.verticalCenter
            visible: line.control === SettingControl.Days
            label: line.title
            names: line.control === SettingControl.Days ? line.choices : []
            days: line.days
            onToggled: day => line.dayToggled(day)
        }
        DeskButton {
            anchors.verticalCenter: parent.verticalCenter
            visible: line.action
            text: line.action
            Accessible.name: qsTr("%1: %2").arg(line.title).arg(line.action)
            Accessible.description: line.meaning
            onClicked: line.acted()
        }
        DeskField {
            anchors.verticalCenter: parent.verticalCenter
            visible: line.control === SettingControl.Text
            width: line.isNumber ? Theme.settingNumber : Theme.settingControl
            outlined: true
            label: line.title
            text: line.value
            Accessible.description: line.meaning
            onEditingFinished: if (text !== line.value)
                line.entered(text)
        }
    }
    Column {
        id: words

        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: band.visible ? -band.height / 2 : 0
        width: parent.width - controls.width - Theme.space4

        DeskText {
            width: parent.width
            type: DeskText.BaseMedium
            text: line.title
        }
        DeskText {
            width: parent.width
            type: DeskText.Meta
            lines: 6
            color: Theme.text2
            text: line.meaning
        }
        DeskText {
            width: parent.width
            visible: text
            type: DeskText.Meta
            lines: 3
            color: line.problem ? Theme.red : Theme.text3
            text: line.note
        }
    }
}
