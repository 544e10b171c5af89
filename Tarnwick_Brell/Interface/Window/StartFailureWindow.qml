import QtQuick
import QtQuick.Window
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Says why the program does not start, in place of the window that was asked for.
Window {
    id: window

    required property Appearance appearance
    required property string reason
    required property string help
    /// Where "Open folder" leads to; empty without that button.
    required property url folder
    required property bool isLibraryDamaged
    /// What the user wants done before the next start: "repair" or "restore".
    property string wish

    title: qsTr("Tarnwick Brell")
    color: Theme.canvas
    flags: Qt.Dialog
    width: Theme.noticeMost + 2 * Theme.space6
    height: content.height + 2 * Theme.space6
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height

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
        Accessible.description: window.reason
        Keys.onEscapePressed: window.close()

        DeskText {
            id: heading
            width: parent.width
            type: DeskText.Heading
            text: qsTr("Tarnwick Brell can't start")
            Accessible.role: Accessible.Heading
        }
        DeskText {
            width: parent.width
            lines: 12
            text: window.reason
        }
        DeskText {
            width: parent.width
            visible: window.help
            lines: 4
            text: window.help
            color: Theme.text2
        }
        Row {
            anchors.right: parent.right
            topPadding: Theme.space3
            spacing: Theme.space2

            DeskButton {
                visible: String(window.folder) !== ""
                inSheet: true
                text: qsTr("Open folder")
                onClicked: Qt.openUrlExternally(window.folder)
            }
            DeskButton {
                visible: window.isLibraryDamaged
                inSheet: true
                text: qsTr("Restore the last backup")
                onClicked: {
                    window.wish = "restore";
                    window.close();
                }
            }
            DeskButton {
                visible: window.isLibraryDamaged
                inSheet: true
                text: qsTr("Repair…")
                onClicked: {
                    window.wish = "repair";
                    window.close();
                }
            }
            DeskButton {
                inSheet: true
                look: DeskButton.Primary
                focus: true
                text: qsTr("Close")
                onClicked: window.close()
            }
        }
    }
}
