import QtQuick
import QtQuick.Window
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// How far the repair or restoring of the library is, while there is no desk.
Window {
    id: window

    required property Appearance appearance
    required property LibraryWorkModel work

    title: qsTr("Tarnwick Brell")
    color: Theme.canvas
    flags: Qt.Dialog
    width: Theme.noticeMost + 2 * Theme.space6
    height: content.height + 2 * Theme.space6
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    // It closes by itself when the work has ended.
    onClosing: close => {
        close.accepted = false;
        window.work.cancel();
    }

    Binding {
        target: Theme
        property: "dark"
        value: window.appearance.isDark
    }
    Binding {
        target: Theme
        property: "fontScale"
        value: window.appearance.fontScale
    }
    Binding {
        target: Theme
        property: "reducedMotion"
        value: window.appearance.reducedMotion
    }

    Column {
        id: content
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.space6
        spacing: Theme.space3
        Accessible.role: Accessible.Dialog
        Accessible.name: heading.text
        Accessible.description: window.work.sentence
        Keys.onEscapePressed: window.work.cancel()

        DeskText {
            id: heading
            width: parent.width
            type: DeskText.Heading
            text: window.work.title
            Accessible.role: Accessible.Heading
        }
        DeskText {
            width: parent.width
            lines: 6
            text: window.work.sentence
        }
        ProgressLine {
            width: parent.width
            running: !window.work.asks
            value: window.work.share
        }
        Row {
            anchors.right: parent.right
            topPadding: Theme.space3
            spacing: Theme.space2

            DeskButton {
                inSheet: true
                focus: true
                text: qsTr("Cancel")
                onClicked: window.work.cancel()
            }
            DeskButton {
                // There from the start: "Cancel" must not move away from under the pointer.
                visible: window.work.isRepair
                enabled: window.work.asks
                inSheet: true
                look: DeskButton.Primary
                text: qsTr("Repair")
                onClicked: window.work.confirm()
            }
        }
    }
}
