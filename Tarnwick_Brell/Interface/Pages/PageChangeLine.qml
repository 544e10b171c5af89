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
    required property var wordsBefore
    required property string turn
    required property string extent
    required property int leftOutPlace
    required property string spokenText

    property bool isCurrent: false

    /// The part is to be compared again.
    signal compared

    readonly property bool isSplit: wordsBefore.length > 0
    readonly property real textWidth: width - 2 * Theme.rowText

    implicitHeight: title.height + head.height + Math.max(words.height, isSplit ? before.height : 0, again.visible ? again.height : 0)
                    + Theme.space4 + Theme.space2
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
    Item {
        id: head

        x: Theme.rowText
        anchors.top: title.bottom
        anchors.topMargin: Theme.space2
        width: line.textWidth
        height: line.headings || line.extent ? Math.max(path.implicitHeight, turn.visible ? turn.height : 0) : 0
        visible: height > 0

        DeskText {
            id: path

            anchors.verticalCenter: parent.verticalCenter
            width: marks.x - Theme.space2
            type: DeskText.MetaStrong
            color: Theme.text3
            text: line.headings
            Accessible.ignored: true
        }
        Row {
            id: marks

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.space2

            Badge {
                id: turn

                anchors.verticalCenter: parent.verticalCenter
                visible: line.turn
                kind: Badge.Issue
                text: line.turn
            }
            DeskText {
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Meta
                color: Theme.text3
                text: line.extent
                Accessible.ignored: true
            }
        }
    }
    MarkedWords {
        id: before

        x: Theme.rowText
        anchors.top: head.bottom
        anchors.topMargin: Theme.space1
        visible: line.isSplit
        width: (line.textWidth - Theme.space4) / 2
        words: line.wordsBefore
    }
    MarkedWords {
        id: words

        x: line.isSplit ? before.x + before.width + Theme.space4 : Theme.rowText
        anchors.top: head.bottom
        anchors.topMargin: Theme.space1
        width: line.isSplit ? before.width : (again.visible ? again.x - Theme.space2 : parent.width - x) - x
        words: line.words
        color: line.leftOutPlace < 0 ? Theme.text1 : Theme.text2
    }
    DeskButton {
        id: again

        anchors.right: parent.right
        anchors.rightMargin: Theme.rowText
        anchors.top: head.bottom
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
