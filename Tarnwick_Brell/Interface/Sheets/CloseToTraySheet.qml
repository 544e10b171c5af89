import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Asked when the window is closed for the first time while the desktop has a tray.
Sheet {
    id: sheet

    required property CloseToTraySheetModel content

    // The window asks its setting again when it is closed again.
    function answer(staysInTray: bool) {
        const window = words.Window.window;
        content.choose(staysInTray);
        window.close();
    }

    title: qsTr("Keep the desk running?")
    implicitWidth: Theme.noticeMost

    DeskText {
        id: words

        width: parent.width
        type: DeskText.Base
        color: Theme.text2
        lines: 6
        text: qsTr("The desk can go on fetching in the desktop's tray and tell you of news while its window is closed. The setting closeToTray changes this later.")
    }

    foot: [
        DeskButton {
            inSheet: true
            text: qsTr("Quit")
            onClicked: sheet.answer(false)
        },
        DeskButton {
            look: DeskButton.Primary
            inSheet: true
            text: qsTr("Keep in the tray")
            onClicked: sheet.answer(true)
        }
    ]
}
