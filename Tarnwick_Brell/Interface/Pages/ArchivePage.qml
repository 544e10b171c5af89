pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// Stories of a day, week or month from the archive, beside the calendar that chooses it.
PageBody {
    id: page

    required property ArchivePageModel content

    readonly property bool hasCalendar: width - PageSizes.calendarPane - Theme.line >= Theme.wireLeast
    /// The calendar stands in place of the list, where there is no room for both.
    property bool showsCalendar: false

    function step(by: int) {
        list.step(by);
    }
    function switchPane() {
        if (calendar.activeFocus) {
            showsCalendar = false;
            list.forceActiveFocus();
        } else {
            showsCalendar = true;
            calendar.forceActiveFocus();
        }
    }

    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_BracketLeft || event.key === Qt.Key_BracketRight;
        if (event.accepted)
            page.content.movePeriods(event.key === Qt.Key_BracketLeft ? -1 : 1);
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    ArchiveCalendar {
        id: calendar

        width: page.hasCalendar ? PageSizes.calendarPane : parent.width
        height: parent.height
        visible: page.hasCalendar || page.showsCalendar
        content: page.content
        onLeftForList: page.switchPane()
    }
    Hairline {
        vertical: true
        x: calendar.width
        height: parent.height
        visible: page.hasCalendar
    }
    FocusScope {
        id: stories

        x: page.hasCalendar ? calendar.width + Theme.line : 0
        width: parent.width - x
        height: parent.height
        visible: page.hasCalendar || !page.showsCalendar
        focus: true

        Item {
            id: header

            width: parent.width
            height: Theme.listHeader

            IconButton {
                id: earlier

                x: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                symbol: "chevron.left"
                text: qsTr("Earlier")
                key: "["
                onClicked: page.content.movePeriods(-1)
            }
            IconButton {
                id: later

                anchors.left: earlier.right
                anchors.verticalCenter: parent.verticalCenter
                symbol: "chevron.right"
                text: qsTr("Later")
                key: "]"
                onClicked: page.content.movePeriods(1)
            }
            DeskText {
                id: title

                anchors.left: later.right
                anchors.leftMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.BaseStrong
                text: page.content.periodText
                Accessible.role: Accessible.Heading
            }
            DeskText {
                anchors.left: title.right
                anchors.leftMargin: Theme.space2
                anchors.right: days.left
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                type: DeskText.Secondary
                text: page.content.countText
                color: Theme.text3
            }
            IconButton {
                id: days

                anchors.right: parent.right
                anchors.rightMargin: Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                width: visible ? implicitWidth : 0
                visible: !page.hasCalendar
                symbol: "calendar"
                text: qsTr("Show the calendar")
                key: qsTr("F6")
                onClicked: page.switchPane()
            }
            Hairline {
                anchors.bottom: parent.bottom
                width: parent.width
            }
        }
        FailureBanner {
            id: failure

            x: Theme.gridPadding
            y: header.height + (visible ? Theme.space3 : 0)
            width: parent.width - 2 * x
            height: visible ? implicitHeight : 0
            visible: page.content.failure !== ""
            text: page.content.failure
            onRetried: page.content.retry()
        }
        TableList {
            id: list

            y: failure.y + failure.height
            width: parent.width
            height: parent.height - y
            label: page.content.periodText
            model: page.content.rows
            onOpened: row => page.content.openRow(row)
            onAtYEndChanged: if (atYEnd)
                page.content.loadMore()

            delegate: ArchiveStoryLine {
                width: list.width
                content: page.content
                listFocused: list.activeFocus
                isCurrent: ListView.isCurrentItem
                onChosen: {
                    list.forceActiveFocus();
                    list.choose(index);
                }
                onOpened: page.content.openRow(index)
            }
        }
        PanelSkeleton {
            anchors.fill: list
            anchors.margins: Theme.gridPadding
            visible: list.count === 0 && page.content.isAsking
        }
        EmptyState {
            anchors.centerIn: list
            width: list.width - 2 * Theme.gridPadding
            visible: list.count === 0 && !page.content.isAsking && page.content.failure === ""
            symbol: "archivebox"
            text: qsTr("The archive has no stories of this period.")
            hint: qsTr("[ and ] lead to the period before and after.")
        }
    }
}
