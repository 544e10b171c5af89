import QtQuick
import QtQuick.Templates as T

/// A text field. `main` is the principal field of a sheet, `outlined` one of several on a sheet.
/// `note` and `key` are at the right; the key shows only while the field has no focus. With
/// `clearsOnEscape`, Esc empties the field and, once it is empty, leaves it.
T.TextField {
    id: field

    signal escaped

    property string label: placeholderText
    property string symbol
    property string key
    property string note
    property bool main: false
    property bool outlined: false
    property bool clearable: false
    property bool clearsOnEscape: false

    readonly property bool clears: clearable && text
    readonly property int start: Theme.space3 + (symbol ? Theme.icon + Theme.space2 : 0)
    readonly property int end: clears ? clear.width
        : cap.visible ? cap.width + Theme.space2 : words.visible ? words.width + Theme.space3 : Theme.space3

    implicitWidth: Theme.sidebarWidth
    implicitHeight: main ? Theme.mainFieldHeight : Theme.fieldHeight
    leftPadding: Mirror.isOn ? end + Theme.space1 : start
    rightPadding: Mirror.isOn ? start : end + Theme.space1
    verticalAlignment: TextInput.AlignVCenter
    Component.onCompleted: Mirror.flip(field)
    // Without a family Qt would use the desktop's font for fields, not the window's.
    font.family: hint.font.family
    font.pixelSize: hint.font.pixelSize
    renderType: Text.NativeRendering
    color: Theme.text1
    placeholderTextColor: Theme.text3
    selectionColor: Theme.accent
    selectedTextColor: Theme.textOnAccent
    selectByMouse: true
    // Without focus a long text shows its beginning.
    autoScroll: activeFocus
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: label
    // Keeps a shortcut of the window from taking the key.
    Keys.onShortcutOverride: event => event.accepted = clearsOnEscape && event.key === Qt.Key_Escape
    Keys.onEscapePressed: event => {
        event.accepted = clearsOnEscape;
        if (!clearsOnEscape)
            return;
        if (text) {
            empty();
        } else {
            focus = false;
            escaped();
        }
    }

    function empty() {
        text = "";
        textEdited();
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: field.activeFocus || field.outlined ? Theme.surface : Theme.field
        border.width: field.outlined ? Theme.line : 0
        border.color: Theme.border

        Rectangle {
            anchors.fill: parent
            anchors.margins: -Theme.focusRing / 2
            visible: field.activeFocus
            radius: parent.radius + Theme.focusRing / 2
            color: "transparent"
            border.width: Theme.focusRing
            border.color: Theme.accent
        }
    }

    // Mirrored once more, since the field mirrors itself back for the text that is typed.
    Item {
        id: parts

        anchors.fill: parent
        Component.onCompleted: Mirror.flip(parts)

        Symbol {
            x: Theme.space3
            anchors.verticalCenter: parent.verticalCenter
            visible: field.symbol
            name: field.symbol
            color: field.activeFocus ? Theme.text1 : Theme.text2
        }
        DeskText {
            id: hint
            x: field.start
            anchors.verticalCenter: parent.verticalCenter
            width: field.width - field.start - field.end - Theme.space1
            visible: !field.text && !field.preeditText
            text: field.placeholderText
            color: field.placeholderTextColor
            Accessible.ignored: true
        }
        KeyCap {
            id: cap
            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            visible: field.key && !field.text && !field.activeFocus
            text: field.key
        }
        DeskText {
            id: words
            anchors.right: parent.right
            anchors.rightMargin: Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            visible: field.note && !field.clears && !cap.visible
            type: DeskText.Meta
            text: field.note
            color: Theme.text3
        }
        IconButton {
            id: clear
            anchors.right: parent.right
            anchors.rightMargin: Theme.step2
            anchors.verticalCenter: parent.verticalCenter
            visible: field.clears
            focusPolicy: Qt.NoFocus
            symbol: "xmark"
            size: Theme.iconInMeta
            text: qsTr("Clear")
            onClicked: field.empty()
        }
    }
}
