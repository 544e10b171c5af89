pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Adds a source by what the user types or pastes.
Sheet {
    id: sheet

    required property AddSourceSheetModel content

    readonly property real room: (parent ? parent.height : 0) - 2 * margins - Theme.sheetHeader - Theme.sheetFoot - Theme.space6

    function go() {
        if (content.canAdd)
            content.add();
        else if (content.canCheck)
            content.check();
    }

    title: qsTr("Add a source")
    onOpened: typed.forceActiveFocus()

    foot: [
        DeskButton {
            inSheet: true
            text: qsTr("Cancel")
            onClicked: sheet.close()
        },
        DeskButton {
            inSheet: true
            look: DeskButton.Primary
            enabled: sheet.content.canAdd || sheet.content.canCheck
            text: sheet.content.canAdd ? qsTr("Add source") : qsTr("Find the feed")
            key: qsTr("Enter")
            onClicked: sheet.go()
        }
    ]

    footStart: [
        DeskCheckBox {
            visible: sheet.content.canAdd
            text: qsTr("Only stories about Apple")
            checked: sheet.content.onlyApple
            onToggled: sheet.content.onlyApple = checked
        },
        DeskText {
            anchors.verticalCenter: parent.verticalCenter
            visible: sheet.content.canAdd
            type: DeskText.Secondary
            color: Theme.text3
            text: sheet.content.appleText
        }
    ]

    Flickable {
        width: parent ? parent.width : 0
        height: Math.min(form.height, sheet.room)
        contentHeight: form.height
        clip: interactive
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ThinScrollBar {}

        Column {
            id: form

            width: parent.width
            spacing: Theme.space2

            // The ring of the field's focus lies around it.
            Item {
                width: parent.width
                height: Theme.focusRing
            }
            DeskField {
                id: typed

                x: Theme.focusRing
                width: parent.width - 2 * x
                main: true
                outlined: true
                symbol: "globe"
                label: qsTr("Address")
                placeholderText: qsTr("Feed, website, @handle or YouTube channel")
                text: sheet.content.typed
                onTextEdited: sheet.content.typed = text
                onAccepted: sheet.go()
            }
            DeskText {
                width: parent.width
                lines: 2
                type: DeskText.Secondary
                color: Theme.text3
                text: qsTr("Paste a feed, a website, a Mastodon or Bluesky handle, or a YouTube channel's address.")
            }
            SectionLabel {
                width: parent.width
                visible: attempts.count > 0
                start: 0
                end: 0
                text: qsTr("Addresses tried")
                detail: sheet.content.progressText
            }
            Rectangle {
                width: parent.width
                height: rows.height
                visible: attempts.count > 0
                radius: Theme.radiusControl
                color: "transparent"
                border.width: Theme.line
                border.color: Theme.hairline

                Column {
                    id: rows

                    width: parent.width

                    // At most ten: an address, and the feeds that its page names.
                    Repeater {
                        id: attempts

                        model: sheet.content.attempts

                        AttemptLine {
                            width: rows.width
                            onTried: sheet.content.tryAddress(index)
                        }
                    }
                }
            }
            LinkText {
                visible: sheet.content.isChecking
                text: qsTr("Stop")
                onClicked: sheet.content.stop()
            }
            DeskText {
                width: parent.width
                visible: sheet.content.error !== ""
                lines: 4
                type: DeskText.SecondaryMedium
                color: Theme.red
                text: sheet.content.error
                Accessible.role: Accessible.AlertMessage
            }
            LinkText {
                visible: sheet.content.knownSource !== ""
                text: qsTr("Show %1").arg(sheet.content.knownSource)
                onClicked: sheet.content.showKnown()
            }
            Row {
                width: parent.width
                visible: sheet.content.canAdd
                spacing: Theme.space4

                Column {
                    width: parent.width - groups.width - parent.spacing
                    spacing: Theme.space1

                    DeskText {
                        type: DeskText.MetaStrong
                        color: Theme.text2
                        text: qsTr("Name")
                    }
                    DeskField {
                        width: parent.width
                        outlined: true
                        label: qsTr("Name")
                        text: sheet.content.name
                        onTextEdited: sheet.content.name = text
                        onAccepted: sheet.go()
                    }
                }
                Column {
                    id: groups

                    width: Theme.sheetSideColumn
                    spacing: Theme.space1

                    DeskText {
                        type: DeskText.MetaStrong
                        color: Theme.text2
                        text: qsTr("Group")
                    }
                    Rectangle {
                        width: parent.width
                        height: Theme.fieldHeight
                        radius: Theme.radiusControl
                        color: Theme.recess

                        DeskText {
                            x: Theme.space3
                            anchors.verticalCenter: parent.verticalCenter
                            color: Theme.text2
                            text: sheet.content.group
                        }
                    }
                }
            }
            SectionLabel {
                width: parent.width
                visible: sheet.content.canAdd
                start: 0
                end: 0
                text: qsTr("Preview with the labels they will get")
                detail: sheet.content.storiesText
            }
            Repeater {
                model: sheet.content.stories

                PreviewStoryLine {
                    width: form.width
                }
            }
        }
    }
}
