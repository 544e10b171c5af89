pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Palette

/// The bar over a newsroom that is edited: its keys, undo, adding a panel, leaving.
Item {
    id: bar

    required property NewsroomEditor editor
    required property UndoStack undo
    property string title

    DeskText {
        id: name

        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, buttons.x - editing.implicitWidth - 2 * Theme.space3)
        type: DeskText.Heading
        text: bar.title
        Accessible.role: Accessible.Heading
    }
    DeskText {
        id: editing

        anchors.left: name.right
        anchors.leftMargin: Theme.space4
        anchors.verticalCenter: parent.verticalCenter
        type: DeskText.SecondaryMedium
        color: Theme.accentText
        text: qsTr("Editing")
    }
    /// As many keys as fit.
    Row {
        anchors.left: editing.right
        anchors.leftMargin: Theme.space6
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space6

        Repeater {
            model: [
                { keys: ["↑↓←→"], does: qsTr("move") },
                { keys: [qsTr("Shift"), "↑↓←→"], does: qsTr("resize") },
                { keys: [qsTr("Tab")], does: qsTr("next panel") },
                { keys: [qsTr("Ctrl Esc")], does: qsTr("give all back") }
            ]

            Row {
                id: hint

                required property var modelData

                opacity: parent.x + x + width < buttons.x - Theme.space3 ? 1 : 0
                spacing: Theme.badgeGap

                KeyCaps {
                    anchors.verticalCenter: parent.verticalCenter
                    keys: hint.modelData.keys
                }
                DeskText {
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.Secondary
                    color: Theme.text3
                    text: hint.modelData.does
                }
            }
        }
    }
    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space2

        DeskButton {
            look: DeskButton.Quiet
            symbol: "arrow.uturn.backward"
            text: qsTr("Undo")
            tip: bar.undo.undoText
            key: qsTr("Ctrl Z")
            enabled: bar.undo.canUndo
            onClicked: bar.undo.undo()
        }
        DeskButton {
            symbol: "plus"
            text: qsTr("Add panel")
            tip: qsTr("Choose a panel to add")
            key: qsTr("Shift A")
            checkable: true
            checked: bar.editor.isPicking
            onClicked: bar.editor.isPicking = !bar.editor.isPicking
        }
        DeskButton {
            look: DeskButton.Primary
            text: qsTr("Done")
            key: qsTr("Esc")
            onClicked: bar.editor.end()
        }
    }
}
