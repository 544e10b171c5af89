import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A rule of alerts at the left, what it would have told at the right.
Sheet {
    id: sheet

    required property AlertRuleSheetModel content

    title: content.isNew ? qsTr("New alert rule") : qsTr("Alert rule")
    closeText: qsTr("Cancel")
    flush: true
    implicitWidth: Theme.ruleSheetWidth
    implicitHeight: Theme.ruleSheetHeight
    onOpened: form.focusFirst()

    AlertRuleForm {
        id: form

        width: Theme.ruleForm
        height: parent ? parent.height : 0
        content: sheet.content
    }
    RuleRehearsal {
        x: form.width
        width: parent ? parent.width - x : 0
        height: form.height
        rehearsal: sheet.content.rehearsal
    }

    footStart: DeskButton {
        visible: !sheet.content.isNew
        inSheet: true
        look: DeskButton.Danger
        text: qsTr("Remove rule")
        onClicked: sheet.content.remove()
    }
    foot: [
        DeskButton {
            inSheet: true
            text: qsTr("Cancel")
            onClicked: sheet.close()
        },
        DeskButton {
            inSheet: true
            look: DeskButton.Primary
            enabled: !sheet.content.problem
            text: qsTr("Save rule")
            key: qsTr("Ctrl Enter")
            onClicked: sheet.content.save()
        }
    ]

    Shortcut {
        enabled: sheet.opened
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        onActivated: sheet.content.save()
    }
}
