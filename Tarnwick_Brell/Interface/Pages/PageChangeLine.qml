import QtQuick
import TarnwickBrell.Controls

/// A change in a sentence, below the headings under which it stands on the page.
Item {
    id: line

    required property int index
    required property string group
    required property string headings
    required property string text
    required property string spokenText

    property bool isCurrent: false

    implicitHeight: title.height + path.height + words.height + Theme.space4
    Accessible.role: Accessible.StaticText
    Accessible.name: spokenText

    Rectangle {
        anchors.fill: parent
        color: line.isCurrent ? Theme.selected : "transparent"
    }
    SectionLabel {
        id: title

        width: parent.width
        height: line.group ? implicitHeight : 0
        visible: line.group
        start: Theme.rowText
        text: line.group
    }
    DeskText {
        id: path

        x: Theme.rowText
        anchors.top: title.bottom
        anchors.topMargin: Theme.space2
        width: parent.width - 2 * x
        height: text ? implicitHeight : 0
        type: DeskText.MetaStrong
        color: Theme.text3
        text: line.headings
        Accessible.ignored: true
    }
    DeskText {
        id: words

        x: Theme.rowText
        anchors.top: path.bottom
        width: parent.width - 2 * x
        lines: PageSizes.sheetParagraphLines
        type: DeskText.Reader
        text: line.text
        Accessible.ignored: true
    }
    Hairline {
        x: Theme.rowText
        width: parent.width - 2 * x
        anchors.bottom: parent.bottom
    }
}
