pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The options of a panel, which work at once.
Sheet {
    id: sheet

    required property PanelOptionsSheetModel content

    readonly property real room: (parent ? parent.height : 0) - 2 * margins - Theme.sheetHeader - Theme.sheetFoot - Theme.space6

    title: content.title
    implicitWidth: Theme.smallSheetWidth

    Flickable {
        width: parent ? parent.width : 0
        height: Math.min(form.height, sheet.room)
        contentHeight: form.height
        clip: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ThinScrollBar {}

        Column {
            id: form

            width: parent.width
            spacing: Theme.space3

            DeskText {
                width: parent.width
                type: DeskText.Secondary
                lines: 2
                color: Theme.text3
                text: sheet.content.description
            }
            Column {
                width: parent.width
                spacing: Theme.space1

                DeskText {
                    type: DeskText.MetaStrong
                    color: Theme.text3
                    text: qsTr("Title")
                }
                DeskField {
                    id: titleField

                    width: parent.width
                    focus: true
                    outlined: true
                    label: qsTr("Title")
                    text: sheet.content.title
                    onEditingFinished: sheet.content.title = text
                }
            }
            Column {
                width: parent.width
                visible: sheet.content.hasQuery
                spacing: Theme.space2

                Item {
                    width: parent.width
                    height: Math.max(storiesLabel.height, count.height)

                    DeskText {
                        id: storiesLabel

                        type: DeskText.MetaStrong
                        color: Theme.text3
                        text: qsTr("Stories")
                    }
                    DeskText {
                        id: count

                        anchors.right: parent.right
                        type: DeskText.Meta
                        color: Theme.text3
                        text: sheet.content.countText
                    }
                }
                SegmentedControl {
                    raised: true
                    label: qsTr("Stories")
                    model: [qsTr("The newsroom's focus"), qsTr("Its own words")]
                    currentIndex: sheet.content.hasOwnQuery ? 1 : 0
                    onActivated: index => sheet.content.hasOwnQuery = index === 1
                }
                WordTokensField {
                    width: parent.width
                    visible: sheet.content.hasOwnQuery
                    label: qsTr("Words, any of them")
                    placeholder: qsTr("Words, any of them; none for all stories")
                    words: sheet.content.words
                    onAdded: text => sheet.content.addWords(text)
                    onRemoved: index => sheet.content.removeWord(index)
                }
                DeskText {
                    width: parent.width
                    visible: !sheet.content.hasOwnQuery
                    type: DeskText.Secondary
                    lines: 2
                    color: Theme.text3
                    text: sheet.content.focusText
                }
            }
            Column {
                width: parent.width
                visible: sheet.content.hasRange
                spacing: Theme.space2

                DeskText {
                    type: DeskText.MetaStrong
                    color: Theme.text3
                    text: qsTr("Range")
                }
                SegmentedControl {
                    raised: true
                    label: qsTr("Range")
                    model: sheet.content.ranges
                    currentIndex: sheet.content.range
                    onActivated: index => sheet.content.range = index
                }
            }
            Column {
                width: parent.width
                visible: sheet.content.hasEventTerms
                spacing: Theme.space1

                DeskText {
                    type: DeskText.MetaStrong
                    color: Theme.text3
                    text: qsTr("Only events with one of these words")
                }
                WordTokensField {
                    width: parent.width
                    label: qsTr("Only events with one of these words")
                    placeholder: qsTr("All events")
                    words: sheet.content.eventTerms
                    onAdded: text => sheet.content.addEventTerms(text)
                    onRemoved: index => sheet.content.removeEventTerm(index)
                }
            }
            Column {
                width: parent.width
                visible: sheet.content.hasPlatforms
                spacing: Theme.space1

                DeskText {
                    type: DeskText.MetaStrong
                    color: Theme.text3
                    text: qsTr("Platforms")
                }
                Flow {
                    width: parent.width
                    spacing: Theme.space4

                    Repeater {
                        model: sheet.content.platforms

                        DeskCheckBox {
                            required property int index
                            required property string name
                            required property bool isShown

                            text: name
                            checked: isShown
                            onToggled: {
                                sheet.content.togglePlatform(index);
                                checked = Qt.binding(() => isShown);
                            }
                        }
                    }
                }
            }
            DeskCheckBox {
                id: alerts

                visible: sheet.content.hasAlerts
                text: qsTr("Notify me of what is new here")
                checked: sheet.content.alerts
                onToggled: sheet.content.alerts = checked
            }
        }
    }

    footStart: [
        DeskButton {
            inSheet: true
            look: DeskButton.Danger
            symbol: "trash"
            text: qsTr("Remove")
            onClicked: sheet.content.remove()
        },
        DeskButton {
            inSheet: true
            symbol: "plus.square.on.square"
            text: qsTr("Duplicate")
            onClicked: sheet.content.duplicate()
        },
        DeskButton {
            id: move

            inSheet: true
            visible: sheet.content.otherNewsrooms.length > 0
            symbol: "arrow.right"
            text: qsTr("Move to…")
            onClicked: targets.popup(move, 0, move.height)

            DeskMenu {
                id: targets

                Repeater {
                    model: sheet.content.otherNewsrooms

                    DeskMenuItem {
                        required property string modelData
                        required property int index

                        text: modelData
                        onTriggered: sheet.content.moveTo(index)
                    }
                }
            }
        }
    ]
    foot: DeskButton {
        inSheet: true
        look: DeskButton.Primary
        text: qsTr("Done")
        onClicked: sheet.close()
    }
}
