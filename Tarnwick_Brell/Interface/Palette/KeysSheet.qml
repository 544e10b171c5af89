pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// All keys, grouped by purpose.
Sheet {
    id: sheet

    required property ActionModel actions

    readonly property real room: (parent ? parent.height : 0) - 2 * margins - Theme.sheetHeader - Theme.space6

    title: qsTr("Keys")

    Flickable {
        id: page

        width: parent ? parent.width : 0
        height: Math.min(columns.height, sheet.room)
        contentHeight: columns.height
        clip: true
        focus: true
        boundsBehavior: Flickable.StopAtBounds
        Keys.onUpPressed: bar.decrease()
        Keys.onDownPressed: bar.increase()
        T.ScrollBar.vertical: ThinScrollBar {
            id: bar

            stepSize: Theme.tableRow / Math.max(1, page.contentHeight)
        }

        Row {
            id: columns

            readonly property int count: 2

            spacing: Theme.space8

            Repeater {
                model: columns.count

                Column {
                    id: column

                    required property int index

                    width: (page.width - (columns.count - 1) * columns.spacing) / columns.count
                    spacing: Theme.space3

                    Repeater {
                        model: sheet.actions.groups

                        Column {
                            id: group

                            required property int index
                            required property string title
                            required property var actions

                            width: column.width
                            visible: index % columns.count === column.index

                            DeskText {
                                type: DeskText.MetaStrong
                                color: Theme.text3
                                text: group.title
                                Accessible.role: Accessible.Heading
                            }
                            Repeater {
                                model: group.actions

                                KeyLine {
                                    width: group.width
                                }
                            }
                        }
                    }
                }
            }
        }
    }
}
