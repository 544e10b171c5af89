import QtQuick
import TarnwickBrell.Controls

/// The palette's text field. Keys that move among the rows are emitted as signals.
Item {
    id: field

    property alias text: input.text
    property string selectedSpokenText
    property int page: 1

    signal edited(text: string)
    signal moved(steps: int)
    signal run

    function begin(): void {
        input.clear();
        input.forceActiveFocus(Qt.PopupFocusReason);
    }

    height: Theme.sheetHeader

    Symbol {
        x: Theme.space5
        anchors.verticalCenter: parent.verticalCenter
        name: "magnifyingglass"
    }
    TextInput {
        id: input

        readonly property int whole: 100000
        readonly property string purpose: qsTr("Find a command, place or story")

        anchors.left: parent.left
        anchors.right: escapeCap.left
        anchors.leftMargin: Theme.space5 + Theme.icon + Theme.space3
        anchors.rightMargin: Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        clip: true
        focus: true
        font.family: hint.font.family
        font.pixelSize: hint.font.pixelSize
        color: Theme.text1
        selectionColor: Theme.accent
        selectedTextColor: Theme.textOnAccent
        maximumLength: 200
        onTextEdited: field.edited(text)
        Component.onCompleted: Mirror.flip(input)

        Accessible.role: Accessible.EditableText
        Accessible.name: purpose
        Accessible.description: field.selectedSpokenText

        Keys.onUpPressed: field.moved(-1)
        Keys.onDownPressed: field.moved(1)
        Keys.onReturnPressed: field.run()
        Keys.onEnterPressed: field.run()
        Keys.onPressed: event => {
            const steps = {
                [Qt.Key_PageUp]: -field.page,
                [Qt.Key_PageDown]: field.page,
                [Qt.Key_Home]: -whole,
                [Qt.Key_End]: whole
            }[event.key];
            event.accepted = steps !== undefined && event.modifiers === Qt.NoModifier;
            if (event.accepted)
                field.moved(steps);
        }

        // Mirrored once more, since the input mirrors itself back for the text that is typed.
        Item {
            id: decoration

            anchors.fill: parent
            Component.onCompleted: Mirror.flip(decoration)

            DeskText {
                id: hint

                anchors.verticalCenter: parent.verticalCenter
                width: parent.width
                type: DeskText.Reader
                color: Theme.text3
                text: input.purpose
                visible: input.text === "" && input.preeditText === ""
                Accessible.ignored: true
            }
        }
    }
    KeyCap {
        id: escapeCap

        anchors.right: parent.right
        anchors.rightMargin: Theme.space4
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Esc")
    }
}
