import QtQuick
import TarnwickBrell.Controls

/// A line of a file with its number and whether it is new or gone.
Rectangle {
    id: state

    required property string number
    required property string text
    required property string sign
    required property color ink
    required property color ground

    color: ground

    Text {
        id: numberText

        width: PageSizes.codeNumber
        height: parent.height
        visible: state.number
        horizontalAlignment: Text.AlignRight
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        font: PageSizes.codeFont
        color: Theme.text3
        text: state.number
        Accessible.ignored: true
    }
    Text {
        x: numberText.visible ? numberText.width + Theme.space1 : 0
        width: PageSizes.codeSign
        height: parent.height
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        font: PageSizes.codeFont
        color: state.ink
        text: state.sign
        Accessible.ignored: true
    }
    Text {
        x: (numberText.visible ? numberText.width + Theme.space1 : 0) + PageSizes.codeSign
        width: parent.width - x - Theme.space1
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font: PageSizes.codeFont
        color: state.ink
        text: state.text
        Accessible.ignored: true
    }
}
