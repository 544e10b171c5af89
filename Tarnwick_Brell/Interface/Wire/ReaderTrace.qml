pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Where the news started, and which outlet took it from which.
Item {
    id: block

    required property TraceModel trace
    signal storyWanted(storyID: string)
    signal linkWanted(link: string)

    visible: trace.state !== TraceModel.Idle
    implicitHeight: visible ? lines.y + lines.implicitHeight : 0

    Hairline {
        y: Theme.space4
        width: parent.width
    }
    DeskText {
        y: Theme.space8
        width: parent.width
        type: DeskText.MetaStrong
        color: Theme.text3
        text: qsTr("Where the story started")
        Accessible.role: Accessible.Heading
    }
    Column {
        id: lines

        y: 2 * Theme.space6 + Theme.space1
        width: parent.width

        DeskText {
            width: parent.width
            visible: block.trace.state === TraceModel.Running || block.trace.state === TraceModel.Empty
            height: Theme.tableRow
            type: DeskText.Secondary
            color: Theme.text3
            text: block.trace.message
        }
        FailureBanner {
            width: parent.width
            visible: block.trace.state === TraceModel.Failed
            text: qsTr("The story could not be traced.")
            since: block.trace.message
            onRetried: block.trace.retry()
        }
        Repeater {
            model: block.trace.rows

            TraceLine {
                required property string storyID
                required property string link

                width: lines.width
                enabled: storyID !== "" || link !== ""
                onClicked: storyID !== "" ? block.storyWanted(storyID) : block.linkWanted(link)
            }
        }
    }
}
