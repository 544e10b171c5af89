pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// What a tracker has seen to change, day by day. A plus or a minus tells the direction beside the
/// colour.
TableList {
    id: list

    opens: false
    property bool pale: false

    delegate: Column {
        id: entry

        required property string heading
        required property bool isAddition
        required property string title
        required property string detail
        required property string when
        required property string spokenText
        required property int index

        width: list.width

        SectionLabel {
            width: parent.width
            height: visible ? implicitHeight : 0
            visible: entry.heading
            text: entry.heading
        }
        TableRow {
            id: row

            width: parent.width
            height: words.height + 2 * Theme.space2
            start: Theme.gridPadding + PageSizes.changeSignColumn
            spokenText: entry.spokenText
            isCurrent: entry.index === list.currentIndex && list.activeFocus
            listFocused: list.activeFocus
            onChosen: list.choose(entry.index)

            contentItem: Item {
                Symbol {
                    x: Theme.gridPadding
                    y: Theme.space2 + Theme.step3
                    name: entry.isAddition ? "plus" : "minus"
                    size: Theme.iconInMeta
                    color: list.pale ? Theme.text3 : entry.isAddition ? Theme.green : Theme.red
                }
                Column {
                    id: words

                    x: row.start
                    y: Theme.space2
                    width: parent.width - x - row.end

                    Item {
                        width: parent.width
                        height: title.height

                        DeskText {
                            id: title
                            width: when.x - Theme.space2
                            lineHeight: Theme.panelLine
                            text: entry.title
                            Accessible.ignored: true
                        }
                        DeskText {
                            id: when
                            anchors.right: parent.right
                            anchors.baseline: title.baseline
                            type: DeskText.Meta
                            text: entry.when
                            color: Theme.text3
                            Accessible.ignored: true
                        }
                    }
                    DeskText {
                        width: parent.width
                        type: DeskText.Secondary
                        lines: 3
                        text: entry.detail
                        color: Theme.text2
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
