pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Who else ran the story, here and in the archive.
Item {
    id: block

    required property CoverageModel coverage
    signal storyWanted(storyID: string)
    signal linkWanted(link: string)

    visible: coverage.state !== CoverageModel.Idle
    implicitHeight: visible ? content.y + content.implicitHeight : 0

    Hairline {
        width: parent.width
    }
    Column {
        id: content

        y: Theme.space4
        width: parent.width
        spacing: Theme.space1

        DeskText {
            width: parent.width
            type: DeskText.MetaStrong
            color: Theme.text3
            text: block.coverage.title
            Accessible.role: Accessible.Heading
        }
        DeskText {
            width: parent.width
            visible: text
            lines: 2
            type: DeskText.Meta
            color: Theme.text3
            text: block.coverage.fact
        }
        DeskText {
            width: parent.width
            visible: block.coverage.state === CoverageModel.Running
            type: DeskText.Secondary
            color: Theme.text3
            text: block.coverage.message
        }
        FailureBanner {
            width: parent.width
            visible: block.coverage.state === CoverageModel.WireOnly
            text: qsTr("The archive did not answer; this is what the wire has.")
            since: block.coverage.message
            onRetried: block.coverage.retry()
        }
        Column {
            id: rows

            width: parent.width

            Repeater {
                id: items

                model: block.coverage.rows

                TimelineRow {
                    required property int index
                    required property string storyID
                    required property string link

                    width: rows.width
                    isLast: index === items.count - 1
                    enabled: storyID !== "" || link !== ""
                    onClicked: storyID !== "" ? block.storyWanted(storyID) : block.linkWanted(link)
                }
            }
        }
    }
}
