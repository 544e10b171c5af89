pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Chooses the devices whose firmware signing is followed.
Sheet {
    id: sheet

    required property SigningDevicesSheetModel content

    function addTyped() {
        if (content.add(field.text))
            field.clear();
    }

    title: qsTr("Devices to follow")
    foot: [
        DeskButton {
            inSheet: true
            text: qsTr("Cancel")
            onClicked: sheet.close()
        },
        DeskButton {
            inSheet: true
            look: DeskButton.Primary
            enabled: sheet.content.canSave
            text: qsTr("Follow these devices")
            key: qsTr("Ctrl Enter")
            onClicked: sheet.content.save()
        }
    ]
    footStart: [
        DeskText {
            type: DeskText.Secondary
            color: Theme.text3
            text: sheet.content.summary
        }
    ]

    Column {
        width: parent.width
        spacing: Theme.space2
        Keys.onPressed: event => {
            event.accepted = (event.modifiers & Qt.ControlModifier) && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter);
            if (event.accepted)
                sheet.content.save();
        }

        DeskText {
            width: parent.width
            type: DeskText.Secondary
            lines: 2
            color: Theme.text3
            text: qsTr("The list of builds is fetched for each device, from the service for firmware signing.")
        }
        Item {
            width: parent.width
            height: field.height

            DeskField {
                id: field

                width: add.x - Theme.space2
                focus: true
                outlined: true
                label: qsTr("Identifiers of other devices")
                placeholderText: qsTr("Another device by its identifier, such as iPhone18,3")
                Keys.onReturnPressed: event => {
                    event.accepted = !(event.modifiers & Qt.ControlModifier);
                    if (event.accepted)
                        sheet.addTyped();
                }
            }
            DeskButton {
                id: add

                anchors.right: parent.right
                inSheet: true
                enabled: field.text !== ""
                text: qsTr("Add")
                onClicked: sheet.addTyped()
            }
        }
        DeskText {
            width: parent.width
            visible: text
            type: DeskText.Secondary
            color: Theme.red
            text: sheet.content.trouble
            Accessible.role: Accessible.AlertMessage
        }
        TableList {
            id: list

            width: parent.width
            height: Math.min(contentHeight, Theme.tableRow * 12)
            focus: false
            label: qsTr("Devices")
            model: sheet.content.devices
            onOpened: row => sheet.content.toggle(row)
            Keys.onSpacePressed: if (currentIndex >= 0) sheet.content.toggle(currentIndex)

            delegate: TableRow {
                id: device

                required property string name
                required property string identifier
                required property bool isChosen
                required property int index

                width: list.width
                start: 0
                end: 0
                ground: Theme.raised
                spokenText: isChosen ? qsTr("%1, chosen").arg(name) : name
                isCurrent: index === list.currentIndex && list.activeFocus
                listFocused: list.activeFocus
                onChosen: {
                    list.choose(index);
                    sheet.content.toggle(index);
                }
                Accessible.checkable: true
                Accessible.checked: isChosen

                contentItem: Item {
                    Rectangle {
                        id: box
                        x: Theme.space2
                        anchors.verticalCenter: parent.verticalCenter
                        width: Theme.tickBox
                        height: width
                        radius: Theme.radiusBadge
                        color: device.isChosen ? Theme.accent : Theme.surface
                        border.width: device.isChosen ? 0 : Theme.line
                        border.color: Theme.edge

                        Symbol {
                            anchors.centerIn: parent
                            visible: device.isChosen
                            name: "checkmark"
                            size: Theme.iconInMeta
                            color: Theme.textOnAccent
                        }
                    }
                    DeskText {
                        id: name
                        anchors.left: box.right
                        anchors.leftMargin: Theme.space2
                        anchors.verticalCenter: parent.verticalCenter
                        type: DeskText.SecondaryMedium
                        text: device.name
                        Accessible.ignored: true
                    }
                    DeskText {
                        anchors.left: name.right
                        anchors.leftMargin: Theme.space2
                        anchors.verticalCenter: parent.verticalCenter
                        visible: device.identifier !== device.name
                        type: DeskText.Meta
                        color: Theme.text3
                        text: device.identifier
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
