pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Exports sources as a list of feeds that other readers import.
Sheet {
    id: sheet

    required property ExportOutlinesSheetModel content

    readonly property real room: (parent ? parent.height : 0) - 2 * margins - Theme.sheetHeader - Theme.sheetFoot - Theme.space6

    title: qsTr("Export sources")
    onOpened: entries.forceActiveFocus()

    foot: [
        DeskButton {
            inSheet: true
            text: qsTr("Cancel")
            onClicked: sheet.close()
        },
        DeskButton {
            inSheet: true
            look: DeskButton.Primary
            enabled: sheet.content.canExport
            text: sheet.content.replaces ? qsTr("Replace the file") : qsTr("Export")
            key: qsTr("Ctrl Enter")
            onClicked: sheet.content.write()
        }
    ]
    footStart: [
        DeskText {
            type: DeskText.Secondary
            color: Theme.text3
            text: sheet.content.summary
        }
    ]

    FocusScope {
        width: parent ? parent.width : 0
        height: sheet.room
        focus: true
        Keys.onPressed: event => {
            event.accepted = (event.modifiers & Qt.ControlModifier) && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter);
            if (event.accepted)
                sheet.content.write();
        }

        SegmentedControl {
            id: choices

            raised: true
            label: qsTr("Which sources are exported")
            model: sheet.content.choices
            currentIndex: sheet.content.choice
            onActivated: index => sheet.content.choose(index)
        }
        TableList {
            id: entries

            anchors.top: choices.bottom
            anchors.topMargin: Theme.space2
            anchors.bottom: ending.top
            anchors.bottomMargin: Theme.space3
            width: parent.width
            label: qsTr("Sources to export")
            model: sheet.content.rows
            onOpened: row => sheet.content.toggle(row)
            Keys.onSpacePressed: if (currentIndex >= 0)
                sheet.content.toggle(currentIndex)

            delegate: TickLine {
                required property bool isGroup

                width: entries.width
                indent: isGroup ? 0 : Theme.space6
                isHeading: isGroup
                isCurrent: ListView.isCurrentItem && entries.activeFocus
                listFocused: entries.activeFocus
                onChosen: {
                    entries.choose(index);
                    sheet.content.toggle(index);
                }
            }
        }
        Column {
            id: ending

            anchors.bottom: parent.bottom
            width: parent.width
            spacing: Theme.space2

            DeskText {
                width: parent.width
                visible: sheet.content.error !== ""
                lines: 3
                type: DeskText.SecondaryMedium
                color: Theme.red
                text: sheet.content.error
                Accessible.role: Accessible.AlertMessage
            }
            DeskCheckBox {
                visible: text !== ""
                text: sheet.content.secretsText
                checked: sheet.content.keepsSecrets
                onToggled: sheet.content.keepsSecrets = checked
            }
            FileLine {
                width: parent.width
                label: qsTr("File")
                hint: qsTr("Path of the file")
                path: sheet.content.path
                onEdited: text => sheet.content.path = text
                onAccepted: sheet.content.write()
                onChooseWanted: sheet.content.chooseFile()
            }
        }
    }
}
