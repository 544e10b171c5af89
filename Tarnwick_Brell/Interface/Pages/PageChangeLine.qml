import QtQuick
import TarnwickBrell.Controls

/// A change below the headings under which it stands on the page: what was removed is struck out,
/// what was added is underlined, both in colours of their own. Or a part that is left out.
Item {
    id: line

    required property int index
    required property string group
    required property string headings
    required property var words
    required property int leftOutPlace
    required property string spokenText

    property bool isCurrent: false

    /// The part is to be compared again.
    signal compared

    implicitHeight: title.height + path.height + Math.max(words.height, again.visible ? again.height : 0) + Theme.space4 + Theme.space2
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
    MarkedWords {
        id: words

        x: Theme.rowText
        anchors.top: path.bottom
        anchors.topMargin: Theme.space1
        width: (again.visible ? again.x - Theme.space2 : parent.width - x) - x
        words: line.words
        color: line.leftOutPlace < 0 ? Theme.text1 : Theme.text2
    }
    DeskButton {
        id: again

        anchors.right: parent.right
        anchors.rightMargin: Theme.rowText
        anchors.top: path.bottom
        visible: line.leftOutPlace >= 0
        text: qsTr("Compare again")
        Accessible.description: line.spokenText
        onClicked: line.compared()
    }
    Hairline {
        x: Theme.rowText
        width: parent.width - 2 * x
        anchors.bottom: parent.bottom
    }
}
