pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The history of an app in a chart of the App Store.
PagePane {
    id: pane

    required property ChartsPageModel content
    property bool pale: false

    Accessible.name: content.appName
    lead: [
        DeskButton {
            enabled: pane.content.hasLink
            symbol: "arrow.up.right.square"
            text: qsTr("App Store page")
            key: qsTr("Enter")
            onClicked: pane.content.openApp()
        }
    ]

    Flickable {
        id: body

        anchors.fill: parent
        contentHeight: column.height + 2 * Theme.space4
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        visible: pane.content.hasApp
        T.ScrollBar.vertical: ThinScrollBar {}

        Column {
            id: column

            x: Theme.gridPadding
            y: Theme.space4
            width: parent.width - 2 * x
            spacing: Theme.space1

            Row {
                spacing: Theme.space2

                DeskText {
                    anchors.verticalCenter: parent.verticalCenter
                    type: DeskText.SecondaryMedium
                    text: pane.content.developer
                }
                Badge {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: pane.content.isApples
                    text: qsTr("Apple's own")
                }
            }
            DeskText {
                width: parent.width
                type: DeskText.Title
                lines: 2
                text: pane.content.appName
                Accessible.role: Accessible.Heading
            }
            DeskText {
                width: parent.width
                type: DeskText.Secondary
                lines: 3
                color: Theme.text2
                text: pane.content.summary
            }
            RankChart {
                width: parent.width
                focus: true
                content: pane.content
                pale: pane.pale
            }
            FactList {
                width: parent.width
                title: qsTr("What happened")
                nothing: qsTr("No notable move in the last three months.")
                facts: pane.content.moves
            }
            FactList {
                width: parent.width
                visible: count > 0
                title: qsTr("Also by %1 in the charts").arg(pane.content.developer)
                facts: pane.content.others
                canChoose: true
                onChosen: row => pane.content.selectOther(row)
            }
        }
    }
    PageMessage {
        text: pane.content.hasApp ? "" : qsTr("Select an app to see its ranks.")
    }
}
