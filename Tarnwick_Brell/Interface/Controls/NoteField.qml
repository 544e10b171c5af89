import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls

/// A field for a text of several lines in Markdown, which it shows as what it means. It shows
/// `value` and does not change it: the handler of `edited` does. Esc leaves it.
T.Control {
    id: field

    property string value
    property string label
    property string placeholder
    property bool outlined: true
    /// It grows with its text, from `leastLines` on, and does not scroll.
    property bool grows: false
    property int leastLines: 4

    signal edited(text: string)
    signal escaped
    /// The field has lost the focus.
    signal finished

    function focusText() {
        input.forceActiveFocus();
    }

    readonly property int lineHeight: Theme.textStyles[DeskText.Base].lineHeight

    padding: outlined ? Theme.space3 : 0
    implicitHeight: grows ? Math.max(leastLines * lineHeight, input.contentHeight) + 2 * padding : Theme.noteHeight
    focusPolicy: Qt.NoFocus

    contentItem: Flickable {
        id: page

        clip: true
        contentWidth: width
        contentHeight: input.height
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        T.ScrollBar.vertical: ThinScrollBar {}

        function show(at: rect) {
            if (at.y < contentY)
                contentY = at.y;
            else if (at.y + at.height > contentY + height)
                contentY = at.y + at.height - height;
        }

        TextEdit {
            id: input

            width: page.width
            height: Math.max(page.height, contentHeight)
            text: field.value
            textFormat: TextEdit.PlainText
            renderType: Text.NativeRendering
            wrapMode: TextEdit.Wrap
            selectByMouse: true
            font: Theme.textStyles[DeskText.Base].font
            color: Theme.text1
            selectionColor: Theme.accent
            selectedTextColor: Theme.textOnAccent
            activeFocusOnTab: true
            Accessible.role: Accessible.EditableText
            Accessible.multiLine: true
            Accessible.name: field.label
            onTextChanged: if (text !== field.value)
                field.edited(text)
            onCursorRectangleChanged: page.show(cursorRectangle)
            onActiveFocusChanged: if (!activeFocus)
                field.finished()
            // A tab leaves the field: lists of notes are indented with blanks.
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape
            Keys.onEscapePressed: field.escaped()

            DeskText {
                visible: input.text === "" && input.preeditText === ""
                width: parent.width
                lines: 3
                color: Theme.text3
                text: field.placeholder
                Accessible.ignored: true
            }
        }
        NoteLook {
            target: input.textDocument
            quiet: Theme.text3
            link: Theme.accentText
            code: Theme.text2
        }
    }
    background: Rectangle {
        visible: field.outlined
        radius: Theme.radiusControl
        color: Theme.surface
        border.width: input.activeFocus ? Theme.focusRing : Theme.line
        border.color: input.activeFocus ? Theme.accent : Theme.border
    }
}
