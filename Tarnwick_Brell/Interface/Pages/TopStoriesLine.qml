import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// A subject with its outlets, a sentence about it, or a story: of its timeline, or on its own.
Item {
    id: line

    required property int index
    required property int part
    required property string storyID
    required property string title
    required property bool isRead
    required property string outletCount
    required property string outletLabel
    required property string outlet
    required property string lead
    required property int sourcing
    required property string sourcingLabel
    required property string time
    required property string growth
    required property bool grows
    required property bool isOpen
    required property bool isFirst
    required property bool isTop
    required property bool isBottom
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false

    readonly property bool isSubject: part === TopStoriesPageModel.Subject
    readonly property bool isSentence: part === TopStoriesPageModel.Sentence
    readonly property bool isInTimeline: part === TopStoriesPageModel.Member

    signal chosen
    signal toggled
    signal opened

    implicitHeight: isSubject ? Theme.clusterRow : Theme.tableRow

    DeskText {
        x: Theme.clusterText
        width: parent.width - x - Theme.rowEnd
        anchors.verticalCenter: parent.verticalCenter
        visible: line.isSentence
        type: DeskText.Meta
        color: Theme.text2
        text: line.title
    }
    TableRow {
        id: row

        anchors.fill: parent
        visible: !line.isSentence
        start: Theme.clusterText
        hasLine: !line.isInTimeline
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: {
            const wasCurrent = line.isCurrent && line.listFocused;
            line.chosen();
            // The first click shows the timeline, one on the selected subject closes it.
            if (line.isSubject && (wasCurrent || !line.isOpen))
                line.toggled();
        }
        onOpened: if (!line.isSubject)
            line.opened()
        Accessible.description: line.isSubject ? (line.isOpen ? qsTr("Open, left closes it") : qsTr("Closed, right opens it")) : ""

        contentItem: Loader {
            id: body

            // Of `part` itself: what is bound to it may still be that of the row before.
            function show() {
                if (line.part === TopStoriesPageModel.Sentence)
                    source = "";
                else
                    setSource(line.part === TopStoriesPageModel.Subject ? "TopStoriesSubject.qml" : "TopStoriesMember.qml", { line: line });
            }

            Component.onCompleted: show()
        }
    }
    onPartChanged: body?.show()
}
