pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Problems first, the only part in colour, then how many services are up and, on demand, recently
/// resolved problems.
Flickable {
    id: panel

    required property StatusPanelModel content
    readonly property bool pale: content.state === PanelModel.Stale
    readonly property color ink: pale ? Theme.text2 : Theme.text1
    /// Opens by itself where there is room.
    property bool isOpened: height > Theme.recentFrom

    contentHeight: column.implicitHeight
    clip: true
    interactive: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    T.ScrollBar.vertical: ThinScrollBar {}

    Column {
        id: column
        width: panel.width
        spacing: Theme.space1

        Repeater {
            model: panel.content.problems

            ProblemCard {
                width: column.width
                pale: panel.pale
            }
        }
        DeskText {
            width: parent.width
            visible: text
            type: DeskText.BaseStrong
            lineHeight: Theme.panelLine
            lines: 2
            text: panel.content.allUp
        }
        Item {
            width: parent.width
            height: Theme.space1
        }
        ServiceCountRow {
            width: parent.width
            text: panel.content.consumer
            status: panel.pale ? StatusMark.Never : panel.content.isConsumerUp ? StatusMark.Up : StatusMark.Issue
            ink: panel.ink
        }
        ServiceCountRow {
            width: parent.width
            text: panel.content.developer
            status: !panel.content.isDeveloperKnown ? StatusMark.Never
                  : panel.content.isDeveloperUp ? StatusMark.Up : StatusMark.Issue
            ink: panel.content.isDeveloperKnown ? panel.ink : Theme.text3
        }
        Flow {
            id: foot
            width: parent.width

            LinkText {
                id: recent
                width: Math.min(implicitWidth, foot.width)
                enabled: panel.content.recentCount > 0
                text: panel.content.recentText
                ink: enabled ? Theme.accentText : Theme.text3
                opacity: 1
                onClicked: panel.isOpened = !panel.isOpened
                Accessible.description: panel.isOpened ? qsTr("Shown below") : ""
            }
            DeskText {
                readonly property real free: foot.width - recent.width - Theme.space2

                width: implicitWidth <= free ? foot.width - recent.width : foot.width
                height: implicitWidth <= free ? recent.height : implicitHeight
                horizontalAlignment: implicitWidth <= free ? Text.AlignRight : Text.AlignLeft
                verticalAlignment: Text.AlignVCenter
                type: DeskText.Meta
                text: panel.content.checked
                color: Theme.text3
            }
        }
        Repeater {
            model: panel.isOpened ? panel.content.recent : null

            RecentProblem {
                width: column.width
            }
        }
    }
}
