import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The next event large, with what can be done for it or for the selected one.
Rectangle {
    id: next

    required property EventsPageModel content
    property bool pale: false

    implicitHeight: content.hasNext ? Math.max(PageSizes.nextEvent, words.implicitHeight + 2 * Theme.gridPadding) : 0
    visible: content.hasNext
    color: Theme.canvas

    Column {
        id: figure

        x: Theme.gridPadding
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(PageSizes.nextEventDays, days.implicitWidth + Theme.space4)

        DeskText {
            id: days

            type: unit.text ? DeskText.Countdown : DeskText.Title
            text: next.content.nextFigure
            color: next.pale ? Theme.text2 : Theme.text1
        }
        DeskText {
            id: unit

            visible: text
            text: next.content.nextUnit
            color: Theme.text2
        }
    }
    Column {
        id: words

        anchors.verticalCenter: parent.verticalCenter
        x: figure.x + figure.width
        width: buttons.x - x - Theme.space4
        spacing: Theme.space1

        DeskText {
            width: parent.width
            type: DeskText.Title
            lines: 2
            text: next.content.nextTitle
            color: next.pale ? Theme.text2 : Theme.text1
            Accessible.role: Accessible.Heading
        }
        DeskText {
            width: parent.width
            lines: 2
            text: next.content.nextTime
            color: Theme.text2
        }
        DeskText {
            width: parent.width
            visible: text
            type: DeskText.Secondary
            text: next.content.nextSource
            color: Theme.text3
        }
    }
    Column {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.gridPadding
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(live.implicitWidth, file.implicitWidth)
        spacing: Theme.space2

        DeskButton {
            id: live

            width: parent.width
            look: DeskButton.Primary
            symbol: "bolt"
            text: qsTr("Go live")
            key: qsTr("l")
            enabled: next.content.canGoLive
            onClicked: next.content.goLive()
        }
        DeskButton {
            id: file

            width: parent.width
            symbol: "calendar"
            text: qsTr("Calendar file")
            key: qsTr("i")
            enabled: next.content.canSave
            onClicked: next.content.saveCalendar()
        }
    }
    Hairline {
        anchors.bottom: parent.bottom
        width: parent.width
    }
}
