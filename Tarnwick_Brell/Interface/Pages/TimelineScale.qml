pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The stages of a subject on one scale with the time between them; below it the stories, and a
/// lane with the releases.
Item {
    id: chart

    required property TimelinePageModel content
    /// The stage in reading; -1 for none.
    required property int current

    signal chosen(stage: int)

    readonly property int start: Theme.gridPadding + PageSizes.timelineLaneName
    readonly property real span: width - start - PageSizes.timelineEnd

    implicitHeight: axis.y + axis.height + Theme.space3
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Stages of the subject")

    Item {
        id: stages

        y: Theme.space5
        width: parent.width
        height: PageSizes.timelineStages

        Hairline {
            x: chart.start
            y: PageSizes.timelineLine
            width: chart.span
        }
        Repeater {
            model: chart.content.stages

            TimelineStagePoint {
                start: chart.start
                span: chart.span
                isCurrent: index === chart.current
                onChosen: chart.chosen(index)
            }
        }
    }
    Item {
        id: stories

        anchors.top: stages.bottom
        width: parent.width
        height: PageSizes.timelineBars

        DeskText {
            x: Theme.gridPadding
            width: PageSizes.timelineLaneName - Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            color: Theme.text2
            text: chart.content.barsName
        }
        Row {
            x: chart.start
            height: parent.height

            Repeater {
                id: bars

                model: chart.content.bars

                Item {
                    id: bar

                    required property double level
                    required property string spokenText

                    width: chart.span / Math.max(1, bars.count)
                    height: stories.height
                    Accessible.role: Accessible.StaticText
                    Accessible.name: spokenText

                    Rectangle {
                        anchors.bottom: parent.bottom
                        width: Math.max(Theme.line, parent.width - Math.min(Theme.space1, parent.width / 4))
                        height: Math.max(bar.level > 0 ? Theme.step2 : 0, parent.height * bar.level)
                        radius: Math.min(Theme.radiusBar, width / 2)
                        color: Theme.accentLine
                    }
                    HoverHandler {
                        id: pointer
                    }
                    Tip {
                        visible: pointer.hovered
                        text: bar.spokenText
                    }
                }
            }
        }
    }
    Item {
        id: lane

        anchors.top: stories.bottom
        anchors.topMargin: Theme.space2
        width: parent.width
        height: visible ? Theme.tableRow : 0
        visible: marks.count > 0

        DeskText {
            x: Theme.gridPadding
            width: PageSizes.timelineLaneName - Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            color: Theme.text2
            text: qsTr("Changes")
        }
        Hairline {
            x: chart.start
            anchors.verticalCenter: parent.verticalCenter
            width: chart.span
        }
        Repeater {
            id: marks

            model: chart.content.releases

            Rectangle {
                id: mark

                required property double place
                required property bool isRelease
                required property string spokenText

                x: chart.start + chart.span * place - width / 2
                anchors.verticalCenter: parent?.verticalCenter
                width: Theme.markBox
                height: width
                radius: width / 2
                color: isRelease ? Theme.text2 : Theme.surface
                border.width: Theme.markRing
                border.color: isRelease ? Theme.text2 : Theme.edge
                Accessible.role: Accessible.StaticText
                Accessible.name: spokenText

                HoverHandler {
                    id: over

                    margin: Theme.space2
                }
                Tip {
                    visible: over.hovered
                    text: mark.spokenText
                }
            }
        }
    }
    Item {
        id: axis

        anchors.top: lane.bottom
        anchors.topMargin: Theme.space1
        width: parent.width
        height: Theme.tableHeader

        Repeater {
            model: chart.content.ticks

            DeskText {
                required property double place
                required property string label

                x: chart.start + chart.span * place
                type: DeskText.Meta
                color: Theme.text3
                text: label
            }
        }
    }
}
