pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Imports a list of feeds after a look at what is in it.
Sheet {
    id: sheet

    required property ImportOutlinesSheetModel content

    readonly property real room: (parent ? parent.height : 0) - 2 * margins - Theme.sheetHeader - Theme.sheetFoot - Theme.space6
    readonly property bool isLooking: content.state === ImportOutlinesSheetModel.Looking
    readonly property bool isImporting: content.state === ImportOutlinesSheetModel.Importing
    readonly property bool hasList: isLooking || isImporting
    readonly property bool picks: content.part === ImportOutlinesSheetModel.New

    function go() {
        if (content.canImport)
            content.import();
        else if (!hasList && file.path !== "")
            content.read(file.path);
    }

    title: hasList ? qsTr("Import %1").arg(content.listTitle) : qsTr("Import a list of feeds")
    onOpened: if (!hasList)
        file.forceActiveFocus()
    onIsLookingChanged: if (isLooking)
        entries.forceActiveFocus()

    foot: [
        DeskButton {
            inSheet: true
            text: sheet.isImporting ? qsTr("Stop") : qsTr("Cancel")
            onClicked: {
                if (sheet.isImporting)
                    sheet.content.giveUp();
                else
                    sheet.close();
            }
        },
        DeskButton {
            inSheet: true
            look: DeskButton.Primary
            enabled: sheet.hasList ? sheet.content.canImport : file.path !== ""
            text: sheet.hasList ? qsTr("Import") : qsTr("Read the file")
            key: sheet.hasList ? qsTr("Ctrl Enter") : qsTr("Enter")
            onClicked: sheet.go()
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
        height: sheet.hasList ? sheet.room : form.height
        focus: true
        Keys.onPressed: event => {
            event.accepted = (event.modifiers & Qt.ControlModifier) && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter);
            if (event.accepted)
                sheet.go();
        }

        Column {
            id: form

            width: parent.width
            topPadding: Theme.focusRing
            spacing: Theme.space2
            visible: !sheet.hasList

            FileLine {
                id: file

                width: parent.width
                focus: true
                label: qsTr("File")
                hint: qsTr("Path of an OPML file, or drop the file here")
                path: sheet.content.path
                onAccepted: text => sheet.content.read(text)
                onChooseWanted: sheet.content.chooseFile()
            }
            DeskText {
                width: parent.width
                lines: 3
                type: DeskText.Secondary
                color: Theme.text3
                text: qsTr("Other readers export their feeds as OPML. You see what is in the list before anything is added.")
            }
        }
        DeskText {
            id: trouble

            y: sheet.hasList ? 0 : form.height - Theme.space4
            width: parent.width
            visible: sheet.content.error !== ""
            lines: 3
            type: DeskText.SecondaryMedium
            color: Theme.red
            text: sheet.content.error
            Accessible.role: Accessible.AlertMessage
        }
        Item {
            id: head

            y: trouble.visible ? trouble.height + Theme.space2 : 0
            width: parent.width
            height: Theme.fieldHeight
            visible: sheet.hasList

            SegmentedControl {
                id: parts

                raised: true
                anchors.verticalCenter: parent.verticalCenter
                label: qsTr("Which entries are shown")
                model: sheet.content.parts
                currentIndex: sheet.content.part
                onActivated: index => sheet.content.part = index
            }
            SearchField {
                anchors.left: parts.right
                anchors.leftMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                width: Theme.barFieldWidth
                placeholderText: qsTr("Filter")
                onTextEdited: sheet.content.words = text
                onEscaped: entries.forceActiveFocus()
                Keys.onDownPressed: entries.forceActiveFocus()
            }
            Row {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                visible: sheet.picks && sheet.isLooking
                spacing: Theme.space2

                DeskButton {
                    text: qsTr("Choose all")
                    onClicked: sheet.content.chooseShown(true)
                }
                DeskButton {
                    text: qsTr("None")
                    onClicked: sheet.content.chooseShown(false)
                }
            }
        }
        ProgressLine {
            y: head.y + head.height + Theme.space1
            width: parent.width
            running: sheet.isImporting
            value: sheet.content.progress
        }
        TableList {
            id: entries

            y: head.y + head.height + Theme.space2
            width: parent.width
            height: parent.height - y
            visible: sheet.hasList
            enabled: sheet.isLooking
            focus: false
            label: qsTr("Entries of the list")
            model: sheet.content.rows
            onOpened: row => sheet.content.toggle(row)
            Keys.onSpacePressed: if (currentIndex >= 0)
                sheet.content.toggle(currentIndex)

            delegate: TickLine {
                width: entries.width
                canTick: sheet.picks
                isCurrent: ListView.isCurrentItem && entries.activeFocus
                listFocused: entries.activeFocus
                onChosen: {
                    entries.choose(index);
                    sheet.content.toggle(index);
                }
            }
        }
        DeskText {
            anchors.centerIn: entries
            visible: sheet.hasList && entries.count === 0
            type: DeskText.Secondary
            color: Theme.text3
            text: qsTr("None.")
        }
        DropArea {
            anchors.fill: parent
            onDropped: drop => {
                if (drop.hasUrls)
                    sheet.content.read(drop.urls[0].toString());
            }
        }
    }
}
