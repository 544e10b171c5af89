pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What a rule would have told of the last days, with the words that matched on a ground of their
/// own.
Rectangle {
    id: half

    required property RehearsalModel rehearsal

    color: Theme.recess

    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.space6
        visible: !half.rehearsal.isReady
        text: half.rehearsal.problem ? qsTr("Not tried on the past") : qsTr("Trying it on the past…")
        hint: half.rehearsal.problem
    }
    Column {
        id: figures

        x: Theme.space6
        topPadding: Theme.space3
        bottomPadding: Theme.space3
        width: parent.width - 2 * x
        visible: half.rehearsal.isReady
        spacing: Theme.space2

        FieldLabel {
            text: qsTr("Rehearsal: what it would have told")
        }
        Item {
            width: parent.width
            height: count.height

            DeskText {
                id: count

                type: DeskText.Title
                text: half.rehearsal.count
            }
            DeskText {
                anchors.left: count.right
                anchors.leftMargin: Theme.space2
                anchors.right: parent.right
                anchors.baseline: count.baseline
                type: DeskText.Secondary
                color: Theme.text2
                text: half.rehearsal.rate
            }
        }
        Row {
            id: bars

            readonly property var shares: half.rehearsal.bars
            readonly property real barWidth: (width - (shares.length - 1) * spacing) / Math.max(1, shares.length)

            width: parent.width
            height: Theme.previewBars
            spacing: Theme.previewBarGap
            Accessible.ignored: true

            Repeater {
                model: bars.shares

                Rectangle {
                    required property real modelData

                    y: bars.height - height
                    width: bars.barWidth
                    height: Math.max(Theme.line, modelData * bars.height)
                    color: Theme.accentLine
                }
            }
        }
        Item {
            width: parent.width
            height: first.height

            DeskText {
                id: first

                type: DeskText.Meta
                color: Theme.text3
                text: half.rehearsal.firstDay
            }
            DeskText {
                anchors.right: parent.right
                type: DeskText.Meta
                color: Theme.text3
                text: qsTr("Today")
            }
        }
        DeskText {
            width: parent.width
            type: DeskText.Secondary
            lines: 3
            color: Theme.text2
            text: half.rehearsal.summary
        }
    }
    ListView {
        anchors.top: figures.bottom
        anchors.bottom: tried.top
        x: figures.x
        width: figures.width
        visible: half.rehearsal.isReady
        clip: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        model: half.rehearsal.rows
        keyNavigationEnabled: true
        Accessible.role: Accessible.List
        Accessible.name: qsTr("What the rule would have told")
        T.ScrollBar.vertical: ThinScrollBar {}

        delegate: RehearsedLine {
            width: ListView.view.width
        }
    }
    DeskText {
        id: tried

        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space2
        x: figures.x
        width: figures.width
        type: DeskText.Meta
        color: Theme.text3
        text: half.rehearsal.tried
    }
    Hairline {
        vertical: true
        height: parent.height
    }
}
