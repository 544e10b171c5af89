pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Puts a story, a clip or a note into projects, or takes it out.
Sheet {
    id: sheet

    required property ProjectChoiceSheetModel content

    function addTyped() {
        content.addProject(field.text);
        field.clear();
    }

    /// There is no project to choose: one is named.
    readonly property bool isFirst: content.hasNone
    onIsFirstChanged: if (isFirst)
        field.forceActiveFocus()

    title: qsTr("Projects")
    implicitWidth: Theme.smallSheetWidth
    onOpened: isFirst ? field.forceActiveFocus() : list.forceActiveFocus()
    foot: DeskButton {
        inSheet: true
        look: DeskButton.Primary
        text: qsTr("Done")
        onClicked: sheet.close()
    }

    Column {
        width: parent ? parent.width : 0
        spacing: Theme.space3

        DeskText {
            width: parent.width
            visible: text
            type: DeskText.Secondary
            color: Theme.text3
            lines: 2
            text: sheet.content.title ? qsTr("“%1” is in:").arg(sheet.content.title) : ""
        }
        TableList {
            id: list

            width: parent.width
            height: Math.min(contentHeight, Theme.tableRow * 10)
            visible: count > 0
            currentIndex: 0
            label: qsTr("Projects")
            model: sheet.content.projects
            onOpened: row => sheet.content.toggle(row)
            Keys.onSpacePressed: if (currentIndex >= 0) sheet.content.toggle(currentIndex)

            delegate: TickLine {
                width: list.width
                isCurrent: ListView.isCurrentItem && list.activeFocus
                listFocused: list.activeFocus
                onChosen: {
                    list.choose(index);
                    sheet.content.toggle(index);
                }
            }
        }
        DeskText {
            width: parent.width
            visible: sheet.content.hasNone
            type: DeskText.Secondary
            color: Theme.text3
            lines: 2
            text: qsTr("There is no project yet. Name one, and this is its first piece of evidence.")
        }
        Item {
            width: parent.width
            height: field.height

            DeskField {
                id: field

                width: add.x - Theme.space2
                outlined: true
                label: qsTr("Name of a new project")
                placeholderText: qsTr("New project")
                onAccepted: sheet.addTyped()
            }
            DeskButton {
                id: add

                anchors.right: parent.right
                inSheet: true
                enabled: field.text.trim() !== ""
                text: qsTr("Add")
                onClicked: sheet.addTyped()
            }
        }
    }
}
