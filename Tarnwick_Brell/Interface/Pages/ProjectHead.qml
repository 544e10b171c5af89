import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A project's name, its description, what it has, and how much of it is checked.
Item {
    id: head

    required property ProjectPageModel content

    implicitHeight: column.height + Theme.space4 + Theme.space3

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    Column {
        id: column

        x: Theme.gridPadding
        y: Theme.space4
        width: parent.width - 2 * x
        spacing: Theme.space1

        TextInput {
            id: name

            width: parent.width
            text: head.content.name
            font: Theme.textStyles[DeskText.Title].font
            color: Theme.text1
            renderType: Text.NativeRendering
            selectByMouse: true
            selectionColor: Theme.accent
            selectedTextColor: Theme.textOnAccent
            clip: true
            activeFocusOnTab: true
            Accessible.role: Accessible.EditableText
            Accessible.name: qsTr("Name of the project")
            onEditingFinished: {
                head.content.setName(text);
                text = Qt.binding(() => head.content.name);
            }
        }
        NoteField {
            width: parent.width
            outlined: false
            grows: true
            leastLines: 1
            label: qsTr("Description of the project")
            placeholder: qsTr("What it is about, and for which piece")
            value: head.content.description
            property string typed: value
            onValueChanged: typed = value
            onEdited: text => typed = text
            onFinished: head.content.setDescription(typed)
            onEscaped: name.forceActiveFocus()
        }
        Item {
            width: parent.width
            height: counts.height

            DeskText {
                id: counts

                width: Math.min(implicitWidth, done.x - Theme.space3)
                type: DeskText.Secondary
                color: Theme.text3
                text: head.content.counts
            }
            DeskText {
                id: done

                anchors.right: bar.left
                anchors.rightMargin: Theme.space3
                type: DeskText.Secondary
                color: Theme.text2
                text: head.content.doneText
            }
            Rectangle {
                id: bar

                anchors.right: parent.right
                anchors.verticalCenter: done.verticalCenter
                width: done.text ? PageSizes.shareBarWidth : 0
                height: Theme.selectionBar
                radius: Theme.radiusBar
                color: Theme.skeleton

                Rectangle {
                    width: Math.round(parent.width * head.content.doneShare)
                    height: parent.height
                    radius: parent.radius
                    color: Theme.accent
                }
            }
        }
    }
    Hairline {
        anchors.bottom: parent.bottom
        width: parent.width
    }
}
