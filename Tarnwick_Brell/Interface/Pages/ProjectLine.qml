import QtQuick
import TarnwickBrell.Controls

/// A piece of evidence on a project's timeline: its time, its kind on the line, what it says, and
/// whether it is checked.
Item {
    id: line

    required property int index
    required property string day
    required property string time
    required property string symbol
    required property string title
    required property string quote
    required property string detail
    required property bool isDone
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false

    signal chosen
    signal opened
    signal toggled

    implicitHeight: group.height + row.height

    SectionLabel {
        id: group

        width: parent.width
        height: line.day ? implicitHeight : 0
        visible: line.day
        start: Theme.gridPadding
        text: line.day
    }
    TableRow {
        id: row

        y: group.height
        width: parent.width
        height: words.height + 2 * Theme.space2
        start: PageSizes.memberText
        hasLine: false
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            DeskText {
                id: time

                x: Theme.gridPadding
                y: Theme.space2
                width: PageSizes.memberTime
                type: DeskText.Meta
                color: Theme.text3
                text: line.time
                Accessible.ignored: true
            }
            Rectangle {
                x: PageSizes.memberNode + Math.round((node.width - width) / 2)
                width: Theme.line
                height: parent.height
                color: Theme.hairline
            }
            Rectangle {
                id: node

                x: PageSizes.memberNode
                y: Theme.space2 - Theme.step1
                width: PageSizes.memberCircle
                height: width
                radius: width / 2
                color: Theme.surface
                border.width: Theme.line
                border.color: Theme.border

                Symbol {
                    anchors.centerIn: parent
                    name: line.symbol
                    size: Theme.iconInMeta
                    color: Theme.text2
                }
            }
            Column {
                id: words

                x: PageSizes.memberText
                y: Theme.space2
                width: state.x - x - Theme.space3
                spacing: Theme.step2

                DeskText {
                    width: parent.width
                    type: DeskText.BaseMedium
                    lines: 2
                    text: line.title
                    Accessible.ignored: true
                }
                DeskText {
                    width: parent.width
                    visible: text
                    type: DeskText.Secondary
                    color: Theme.text2
                    lines: 4
                    text: line.quote ? qsTr("“%1”").arg(line.quote) : ""
                    Accessible.ignored: true
                }
                DeskText {
                    width: parent.width
                    visible: text
                    type: DeskText.Meta
                    color: Theme.text3
                    lines: 2
                    text: line.detail
                    Accessible.ignored: true
                }
            }
            PlainButton {
                id: state

                anchors.right: parent.right
                anchors.rightMargin: Theme.gridPadding
                y: Theme.space2 - Math.round((Theme.leastTarget - node.height) / 2)
                height: Theme.leastTarget
                focusPolicy: Qt.NoFocus
                text: line.isDone ? qsTr("Checked") : qsTr("To check")
                onClicked: line.toggled()

                contentItem: Item {
                    implicitWidth: mark.width + Theme.space1 + label.implicitWidth

                    Symbol {
                        id: mark

                        anchors.verticalCenter: parent.verticalCenter
                        name: line.isDone ? "checkmark" : "circle"
                        size: Theme.iconInMeta
                        color: line.isDone ? Theme.green : Theme.text3
                    }
                    DeskText {
                        id: label

                        anchors.left: mark.right
                        anchors.leftMargin: Theme.space1
                        anchors.verticalCenter: parent.verticalCenter
                        type: DeskText.Meta
                        color: line.isDone ? Theme.green : Theme.text3
                        text: state.text
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
