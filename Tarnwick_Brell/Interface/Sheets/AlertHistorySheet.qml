pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What was told, what was not, and the rule that matched it.
Sheet {
    id: sheet

    required property AlertHistorySheetModel content

    title: qsTr("What was told")
    implicitWidth: PageSizes.historySheet
    foot: [
        DeskButton {
            inSheet: true
            text: qsTr("Close")
            onClicked: sheet.close()
        }
    ]
    footStart: [
        DeskText {
            type: DeskText.Secondary
            color: Theme.text3
            text: sheet.content.summary
        }
    ]

    TableList {
        id: list

        width: parent.width
        height: Math.max(Theme.tableRow, Math.min(contentHeight, PageSizes.logRow * 10))
        focus: true
        label: qsTr("What was told")
        model: sheet.content.rows
        currentIndex: 0
        onOpened: row => sheet.content.openRow(row)

        delegate: AlertHistoryLine {
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: sheet.content.openRow(index)
            onRuleWanted: sheet.content.editRule(index)
        }
    }
}
