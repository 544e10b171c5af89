pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// Six months, in which the arrow keys choose the day, and how complete each source is.
FocusScope {
    id: calendar

    required property ArchivePageModel content

    signal leftForList

    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Calendar, %1").arg(content.periodText)
    Accessible.description: content.countText

    Flickable {
        id: flick

        anchors.fill: parent
        contentHeight: column.implicitHeight + 2 * Theme.gridPadding
        clip: true
        focus: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ThinScrollBar {}
        Keys.onLeftPressed: calendar.content.moveDays(-1)
        Keys.onRightPressed: calendar.content.moveDays(1)
        Keys.onUpPressed: calendar.content.moveDays(-7)
        Keys.onDownPressed: calendar.content.moveDays(7)
        Keys.onReturnPressed: calendar.leftForList()
        Keys.onEscapePressed: calendar.leftForList()
        Keys.onPressed: event => {
            event.accepted = true;
            switch (event.key) {
            case Qt.Key_PageUp:
                calendar.content.moveMonths(-1);
                break;
            case Qt.Key_PageDown:
                calendar.content.moveMonths(1);
                break;
            case Qt.Key_Home:
                calendar.content.goToToday();
                break;
            default:
                event.accepted = false;
            }
        }

        Column {
            id: column

            x: Theme.gridPadding
            y: Theme.gridPadding
            width: flick.width - 2 * x
            spacing: Theme.space4

            Grid {
                columns: 2
                columnSpacing: PageSizes.columnGap
                rowSpacing: Theme.space4

                Repeater {
                    model: calendar.content.months

                    ArchiveMonth {
                        focused: flick.activeFocus
                        content: calendar.content
                    }
                }
            }
            Hairline {
                width: parent.width
            }
            DeskText {
                type: DeskText.MetaStrong
                text: qsTr("How complete each source is")
                color: Theme.text2
                Accessible.role: Accessible.Heading
            }
            Column {
                width: parent.width

                Repeater {
                    model: calendar.content.sources

                    ArchiveSourceLine {
                        width: column.width
                    }
                }
            }
            DeskText {
                width: parent.width
                visible: text
                type: DeskText.Meta
                lines: 4
                text: calendar.content.coverageText
                color: Theme.text3
            }
        }
    }
}
