pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A row of the page of services. The table of an old file lies on the field's ground.
Item {
    id: row

    required property int index
    required property int kind
    required property string title
    required property string detail
    required property string warning
    required property string message
    required property string facts
    required property bool isUp
    required property int level
    required property string levelLabel
    required property list<int> days
    required property string share
    required property string last
    required property bool isOld
    required property bool isOpen
    required property string spokenText

    required property ServiceColumns columns
    required property list<string> dayNames
    property bool listFocused: false
    property bool isCurrent: false
    property int reading: -1
    property string readingText
    /// The day under the pointer.
    property int pointed: -1

    signal chosen
    signal activated

    readonly property color ground: isOld ? Theme.field : Theme.surface
    readonly property color ink: isOld ? Theme.text2 : Theme.text1

    implicitHeight: body.item ? (body.item as Item).implicitHeight : 0
    z: reading >= 0 ? 1 : 0
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText

    Rectangle {
        anchors.fill: parent
        color: row.ground
    }
    Loader {
        id: body

        width: parent.width
        sourceComponent: [heading, problem, table, columnNames, service, fold][row.kind]
    }

    Component {
        id: heading

        Item {
            implicitHeight: Theme.tableTitle

            DeskText {
                id: headingTitle

                x: Theme.gridPadding
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.BaseStrong
                text: row.title
                Accessible.ignored: true
            }
            DeskText {
                anchors.left: headingTitle.right
                anchors.leftMargin: row.title ? Theme.space2 : 0
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Secondary
                text: row.detail
                color: Theme.text3
                Accessible.ignored: true
            }
        }
    }
    Component {
        id: problem

        Item {
            implicitHeight: card.implicitHeight + Theme.space2

            StatusProblem {
                id: card

                x: Theme.gridPadding
                width: parent.width - 2 * x
                service: row.title
                level: row.level
                levelLabel: row.levelLabel
                message: row.message
                facts: row.facts
                duration: row.detail
            }
        }
    }
    Component {
        id: table

        Item {
            implicitHeight: Theme.tableTitle

            DeskText {
                id: tableTitle

                x: Theme.gridPadding
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.BaseStrong
                text: row.title
                color: row.ink
                Accessible.role: Accessible.Heading
            }
            DeskText {
                id: tableDetail

                anchors.left: tableTitle.right
                anchors.leftMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Secondary
                text: row.detail
                color: Theme.text3
            }
            Symbol {
                id: clock

                anchors.right: warning.left
                anchors.rightMargin: Theme.badgeGap
                anchors.verticalCenter: parent.verticalCenter
                visible: row.warning
                name: "clock"
                size: Theme.iconInMeta
                color: Theme.amber
            }
            DeskText {
                id: warning

                anchors.right: retry.left
                anchors.rightMargin: Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, retry.x - tableDetail.x - tableDetail.width - Theme.columnGap - Theme.icon)
                type: DeskText.Secondary
                text: row.warning
                color: Theme.amber
            }
            DeskButton {
                id: retry

                anchors.right: parent.right
                anchors.rightMargin: Theme.gridPadding
                anchors.verticalCenter: parent.verticalCenter
                visible: row.warning
                text: qsTr("Retry")
                onClicked: row.activated()
            }
        }
    }
    Component {
        id: columnNames

        TableHeader {
            id: header

            ColumnName {
                x: row.columns.nameX
                text: qsTr("Service")
            }
            Repeater {
                model: row.columns.days === row.columns.allDays ? row.dayNames : [row.dayNames[2]]

                ColumnName {
                    required property string modelData
                    required property int index

                    x: row.columns.cellsX + index * Theme.daysLeast * row.columns.pitch
                    text: modelData
                }
            }
            ColumnName {
                x: row.columns.cellsX + row.columns.cellsWidth - width
                text: qsTr("Today")
            }
            ColumnName {
                x: row.columns.shareX + Theme.shareColumn - width
                visible: row.columns.hasShare
                text: row.share
            }
            ColumnName {
                x: row.columns.lastX
                text: qsTr("Last incident")
            }
        }
    }
    Component {
        id: service

        TableRow {
            id: line

            spokenText: row.spokenText
            listFocused: row.listFocused
            isCurrent: row.isCurrent
            ground: row.ground
            onChosen: row.chosen()

            contentItem: Item {
                StatusMark {
                    id: mark

                    x: row.columns.nameX
                    anchors.verticalCenter: parent.verticalCenter
                    status: row.isOld ? StatusMark.Never
                          : row.isUp ? StatusMark.Up
                          : row.level === ProblemLevel.Outage ? StatusMark.Outage
                          : row.level === ProblemLevel.Maintenance ? StatusMark.Maintenance : StatusMark.Issue
                    Accessible.ignored: true
                }
                DeskText {
                    x: mark.x + mark.width + Theme.space2
                    width: row.columns.nameX + row.columns.nameWidth - x
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.SecondaryMedium
                    text: row.title
                    color: row.ink
                    Accessible.ignored: true
                }
                DayCells {
                    x: row.columns.cellsX
                    anchors.verticalCenter: parent.verticalCenter
                    days: row.days
                    most: row.columns.days
                    reading: row.reading
                    readingText: row.readingText
                    label: qsTr("Days of %1").arg(row.title)
                    pale: row.isOld
                    onPointed: day => row.pointed = day
                }
                DeskText {
                    x: row.columns.shareX
                    width: Theme.shareColumn
                    visible: row.columns.hasShare
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    type: DeskText.Secondary
                    text: row.share
                    color: Theme.text2
                    Accessible.ignored: true
                }
                Badge {
                    id: badge

                    x: row.columns.lastX
                    width: visible ? implicitWidth : 0
                    anchors.verticalCenter: parent.verticalCenter
                    visible: !row.isUp
                    kind: row.level === ProblemLevel.Outage ? Badge.Outage
                        : row.level === ProblemLevel.Maintenance ? Badge.Maintenance : Badge.Issue
                    text: row.levelLabel
                    Accessible.ignored: true
                }
                DeskText {
                    x: badge.x + (badge.visible ? badge.width + Theme.badgeGap : 0)
                    width: row.columns.lastX + Theme.lastIncidentColumn - x
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.Secondary
                    text: row.last
                    color: Theme.text2
                    Accessible.ignored: true
                }
            }
        }
    }
    Component {
        id: fold

        PlainButton {
            id: foldButton

            implicitHeight: Theme.tableRow
            text: row.title
            onClicked: row.activated()
            Accessible.description: row.isOpen ? qsTr("Open") : qsTr("Closed")
            contentItem: Item {
                Symbol {
                    id: arrow

                    x: Theme.gridPadding
                    anchors.verticalCenter: parent.verticalCenter
                    name: row.isOpen ? "chevron.down" : "chevron.right"
                    size: Theme.iconInMeta
                }
                DeskText {
                    x: arrow.x + arrow.width + Theme.space2
                    width: parent.width - x - Theme.gridPadding
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.Secondary
                    text: row.title
                    color: Theme.text2
                    Accessible.ignored: true
                }
            }
            FocusRing {
                control: foldButton
                inside: true
            }
        }
    }
}
