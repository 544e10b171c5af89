pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T

/// A field for a list of words and phrases. It shows `words` and does not change them: the handlers
/// of `added` and `removed` do. `added` gives the text as it was typed or pasted, which may be
/// several words with commas between them. A comma, Enter or Tab ends a word. Backspace before
/// the text selects the last word, then removes it; the arrows walk through the words.
T.Control {
    id: field

    signal added(text: string)
    signal removed(index: int)
    /// The text that is not a word yet has changed.
    signal edited

    property list<string> words
    property alias text: input.text
    property string label
    property string placeholder

    /// The selected word, -1 while the cursor is in the text.
    property int current: -1

    function close() {
        if (!input.text.trim())
            return false;
        added(input.text);
        input.clear();
        edited();
        return true;
    }
    function remove(index: int) {
        if (index < 0 || index >= words.length)
            return;
        current = -1;
        removed(index);
    }
    function focusText() {
        input.forceActiveFocus();
    }

    implicitWidth: Theme.sidebarWidth
    implicitHeight: Theme.mainFieldHeight + Math.min(list.lines - 1, Theme.wordTokenMostLines - 1) * Theme.wordTokenLine
    padding: (Theme.mainFieldHeight - Theme.wordToken) / 2
    leftPadding: Theme.space2
    rightPadding: Theme.space2
    opacity: enabled ? 1 : Theme.disabledOpacity
    onWordsChanged: current = -1
    Accessible.role: Accessible.Grouping
    Accessible.name: label

    contentItem: Flickable {
        id: page

        contentHeight: list.height
        clip: true
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        onContentHeightChanged: contentY = Math.max(0, contentHeight - height)
        T.ScrollBar.vertical: ThinScrollBar {}

        Flow {
            id: list

            readonly property int lines: Math.max(1, Math.round((height + spacing) / Theme.wordTokenLine))

            width: page.width
            spacing: Theme.wordTokenLine - Theme.wordToken

            Repeater {
                model: field.words

                WordToken {
                    required property string modelData
                    required property int index

                    width: Math.min(implicitWidth, list.width)
                    text: modelData
                    current: index === field.current
                    onPicked: {
                        field.focusText();
                        field.current = index;
                    }
                    onRemoved: field.remove(index)
                }
            }
            TextInput {
                id: input

                width: Math.min(list.width, Math.max(Theme.wordTokenLeastInput, hint.visible ? leftPadding + hint.implicitWidth : 0,
                                                     contentWidth + Theme.space2))
                height: Theme.wordToken
                leftPadding: Theme.space1
                verticalAlignment: TextInput.AlignVCenter
                clip: true
                activeFocusOnTab: true
                selectByMouse: true
                font.family: hint.font.family
                font.pixelSize: hint.font.pixelSize
                renderType: Text.NativeRendering
                color: Theme.text1
                selectionColor: Theme.accent
                selectedTextColor: Theme.textOnAccent
                cursorVisible: activeFocus && field.current < 0
                Accessible.role: Accessible.EditableText
                Accessible.name: field.label
                Accessible.description: field.current >= 0 ? qsTr("Selected: %1").arg(field.words[field.current])
                                                           : Array.from(field.words).join(", ")
                onTextEdited: {
                    field.current = -1;
                    // A lone comma closes nothing and is not part of a word.
                    if (text.includes(","))
                        field.close();
                    field.edited();
                }
                Component.onCompleted: Mirror.flip(input)
                onActiveFocusChanged: if (!activeFocus)
                    field.current = -1

                Keys.onReturnPressed: event => event.accepted = field.close()
                Keys.onEnterPressed: event => event.accepted = field.close()
                Keys.onTabPressed: event => event.accepted = field.close()
                Keys.onEscapePressed: event => {
                    event.accepted = field.current >= 0;
                    field.current = -1;
                }
                Keys.onDeletePressed: event => {
                    event.accepted = field.current >= 0;
                    field.remove(field.current);
                }
                Keys.onLeftPressed: event => {
                    event.accepted = cursorPosition === 0 && !selectedText;
                    if (!event.accepted)
                        return;
                    field.current = field.current < 0 ? field.words.length - 1 : Math.max(0, field.current - 1);
                }
                Keys.onRightPressed: event => {
                    event.accepted = field.current >= 0;
                    if (event.accepted)
                        field.current = field.current + 1 < field.words.length ? field.current + 1 : -1;
                }
                Keys.onPressed: event => {
                    if (event.key !== Qt.Key_Backspace || cursorPosition > 0 || selectedText || !field.words.length)
                        return;
                    event.accepted = true;
                    if (field.current >= 0)
                        field.remove(field.current);
                    else
                        field.current = field.words.length - 1;
                }

                // Mirrored once more, since the input mirrors itself back for the text that is typed.
                Item {
                    id: decoration

                    anchors.fill: parent
                    Component.onCompleted: Mirror.flip(decoration)

                    DeskText {
                        id: hint

                        x: input.leftPadding
                        width: list.width - x
                        anchors.verticalCenter: parent.verticalCenter
                        visible: field.placeholder && !field.words.length && !input.text && !input.preeditText
                        text: field.placeholder
                        color: Theme.text3
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
    background: Rectangle {
        radius: Theme.radiusControl
        color: Theme.surface
        border.width: input.activeFocus ? Theme.focusRing : Theme.line
        border.color: input.activeFocus ? Theme.accent : Theme.border

        TapHandler {
            onTapped: field.focusText()
        }
    }
}
