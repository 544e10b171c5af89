import QtQuick

/// A word of a WordTokensField, with a cross that removes it.
Rectangle {
    id: token

    signal picked
    signal removed

    required property string text
    property bool current: false

    implicitWidth: Theme.space2 + label.implicitWidth + Theme.space1 + Theme.wordTokenCross + Theme.space1
    implicitHeight: Theme.wordToken
    radius: Theme.radiusBadge
    color: current ? Theme.accentSoft : Theme.press
    border.width: current ? Theme.focusRing : 0
    border.color: Theme.accent
    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.selected: current

    TapHandler {
        onTapped: token.picked()
    }
    DeskText {
        id: label

        x: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width - x - 2 * Theme.space1 - Theme.wordTokenCross
        type: DeskText.SecondaryMedium
        text: token.text
        Accessible.ignored: true
    }
    PlainButton {
        id: cross

        // Larger than what is drawn, and as high as a line of words.
        x: parent.width - width
        y: (parent.height - height) / 2
        width: Math.min(Theme.leastTarget, parent.width / 2)
        height: Theme.wordTokenLine
        focusPolicy: Qt.NoFocus
        text: qsTr("Remove %1").arg(token.text)
        onClicked: token.removed()

        Symbol {
            anchors.right: parent.right
            anchors.rightMargin: Theme.space1
            anchors.verticalCenter: parent.verticalCenter
            name: "xmark"
            size: Theme.wordTokenCross
            color: cross.hovered ? Theme.text1 : Theme.text2
        }
    }
}
