pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What the user keeps of the story: its clips and its note.
Item {
    id: block

    required property StoryKeeping keeping

    signal placeWanted(key: string)

    function focusNote() {
        text.focusText();
    }

    visible: !keeping.isEmpty
    implicitHeight: visible ? content.y + content.implicitHeight + Theme.space4 : 0

    Hairline {
        width: parent.width
    }
    Column {
        id: content

        y: Theme.space4
        width: parent.width
        spacing: Theme.space3

        Repeater {
            model: block.keeping.clips

            Item {
                id: clip

                required property string quote
                required property string note
                required property string place

                width: content.width
                height: words.height

                Rectangle {
                    width: Theme.selectionBar
                    height: parent.height
                    radius: Theme.radiusBar
                    color: Theme.accentLine
                }
                Column {
                    id: words

                    x: Theme.space4
                    width: parent.width - x

                    LinkText {
                        width: parent.width
                        text: qsTr("Clip")
                        onClicked: block.placeWanted(clip.place)
                    }
                    DeskText {
                        width: parent.width
                        lines: 20
                        color: Theme.text2
                        text: qsTr("“%1”").arg(clip.quote)
                    }
                    DeskText {
                        width: parent.width
                        visible: text
                        type: DeskText.Secondary
                        color: Theme.text3
                        lines: 6
                        text: clip.note
                    }
                }
            }
        }
        Item {
            width: parent.width
            height: heading.height
            visible: block.keeping.note.isOpen

            DeskText {
                id: heading

                type: DeskText.MetaStrong
                color: Theme.text3
                text: qsTr("Your note")
                Accessible.role: Accessible.Heading
            }
            DeskText {
                anchors.right: parent.right
                type: DeskText.Meta
                color: Theme.text3
                text: block.keeping.note.fact
            }
        }
        NoteField {
            id: text

            width: parent.width
            visible: block.keeping.note.isOpen
            grows: true
            label: qsTr("Your note on this story")
            placeholder: qsTr("Markdown: # heading, **strong**, - item, > quote")
            value: block.keeping.note.text
            onEdited: text => block.keeping.note.text = text
        }
    }
}
