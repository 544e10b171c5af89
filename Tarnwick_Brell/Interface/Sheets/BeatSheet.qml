import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A beat's words at the left, what they find at the right.
Sheet {
    id: sheet

    required property BeatSheetModel content

    title: content.isNew ? qsTr("New beat") : qsTr("Edit beat")
    closeText: qsTr("Cancel")
    flush: true
    implicitWidth: Theme.wideSheetWidth
    implicitHeight: Theme.beatSheetHeight
    onOpened: form.focusFirst()

    BeatForm {
        id: form

        width: Theme.beatForm
        height: parent ? parent.height : 0
        content: sheet.content
    }
    BeatPreview {
        x: form.width
        width: parent ? parent.width - x : 0
        height: form.height
        preview: sheet.content.preview
    }

    footStart: DeskButton {
        visible: !sheet.content.isNew
        inSheet: true
        look: DeskButton.Danger
        text: qsTr("Remove beat")
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
            text: qsTr("Save beat")
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
