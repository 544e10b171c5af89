import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// The fields of a rule: what it tells of, and how.
Flickable {
    id: form

    required property AlertRuleSheetModel content

    function focusFirst() {
        name.forceActiveFocus();
        name.selectAll();
    }

    contentHeight: fields.height + Theme.space6
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    T.ScrollBar.vertical: ThinScrollBar {}

    Column {
        id: fields

        x: Theme.space6
        width: form.width - 2 * x
        spacing: Theme.space2

        FieldLabel {
            text: qsTr("Name")
        }
        Item {
            width: parent.width
            height: name.height

            DeskField {
                id: name

                width: parent.width - toggler.width - Theme.space3
                outlined: true
                label: qsTr("Name")
                text: form.content.name
                onTextEdited: form.content.name = text
            }
            DeskSwitch {
                id: toggler

                anchors.right: parent.right
                anchors.verticalCenter: name.verticalCenter
                text: qsTr("On")
                checked: form.content.isOn
                onToggled: form.content.isOn = checked
            }
        }
        FieldLabel {
            text: qsTr("Tell me when")
        }
        SegmentedControl {
            raised: true
            label: qsTr("Tell me when")
            model: form.content.triggers
            currentIndex: form.content.trigger
            onActivated: index => form.content.trigger = index
        }
        DeskText {
            width: parent.width
            visible: text
            type: DeskText.Base
            text: form.content.beat ? qsTr("Stories of the beat %1").arg(form.content.beat) : ""
        }
        AlertRuleWords {
            width: parent.width
            visible: form.content.trigger !== AlertRuleSheetModel.Price && !form.content.beat
            content: form.content
        }
        AlertRulePrice {
            width: parent.width
            visible: form.content.trigger === AlertRuleSheetModel.Price
            content: form.content
        }
        FieldLabel {
            visible: least.visible
            text: form.content.trigger === AlertRuleSheetModel.Signals ? qsTr("Least weight") : qsTr("Least sourcing")
        }
        SegmentedControl {
            id: least

            visible: form.content.trigger !== AlertRuleSheetModel.Price
            raised: true
            label: form.content.trigger === AlertRuleSheetModel.Signals ? qsTr("Least weight") : qsTr("Least sourcing")
            model: form.content.leasts
            currentIndex: form.content.least
            onActivated: index => form.content.least = index
        }
        FieldLabel {
            visible: outlets.visible
            text: qsTr("Only when so many outlets have it")
        }
        SegmentedControl {
            id: outlets

            visible: form.content.trigger === AlertRuleSheetModel.Stories
            raised: true
            label: qsTr("Only when so many outlets have it")
            model: ["1", "2", "3", "4", "5"]
            currentIndex: form.content.outlets - 1
            onActivated: index => form.content.outlets = index + 1
        }
        FieldLabel {
            text: qsTr("At most one in")
        }
        SegmentedControl {
            raised: true
            label: qsTr("At most one in")
            model: form.content.pauses
            currentIndex: form.content.pause
            onActivated: index => form.content.pause = index
        }
        BeatOption {
            width: parent.width
            text: qsTr("Show a notification")
            hint: qsTr("otherwise in Activity only")
            checked: !form.content.isQuiet
            onToggled: form.content.isQuiet = !checked
        }
        BeatOption {
            width: parent.width
            text: qsTr("Keep to quiet hours")
            checked: form.content.respectsQuietHours
            onToggled: form.content.respectsQuietHours = checked
        }
        BeatOption {
            width: parent.width
            text: qsTr("Play a sound")
            checked: form.content.sound
            onToggled: form.content.sound = checked
        }
        BeatOption {
            width: parent.width
            text: qsTr("Tell the first one only")
            checked: form.content.once
            onToggled: form.content.once = checked
        }
        DeskText {
            width: parent.width
            visible: text
            type: DeskText.Secondary
            lines: 3
            color: Theme.text2
            text: form.content.problem
        }
    }
}
