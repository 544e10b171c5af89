import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models
import TarnwickBrell.Panels

/// A heading, a step with its story, or a claim with what became of it.
Item {
    id: line

    required property int index
    required property int part
    required property string date
    required property int sourcing
    required property string label
    required property string title
    required property string outlet
    required property string detail
    required property string days
    required property int outcome
    required property string storyID
    required property string spokenText

    property bool listFocused: false
    property bool isCurrent: false

    readonly property bool isHeading: part === 0
    readonly property bool isStep: part === 1

    signal chosen
    signal opened

    implicitHeight: isHeading ? PageSizes.tableTitle : isStep ? PageSizes.timelineStep : Theme.tableRow

    Item {
        anchors.fill: parent
        visible: line.isHeading
        Accessible.role: Accessible.Heading
        Accessible.name: line.spokenText

        DeskText {
            x: Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.BaseStrong
            text: line.isHeading ? line.title : ""
            Accessible.ignored: true
        }
        DeskText {
            anchors.right: parent.right
            anchors.rightMargin: Theme.gridPadding
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            color: Theme.text3
            text: line.isHeading ? line.detail : ""
            Accessible.ignored: true
        }
        Hairline {
            anchors.bottom: parent.bottom
            x: Theme.gridPadding
            width: parent.width - 2 * x
        }
    }
    TableRow {
        anchors.fill: parent
        visible: !line.isHeading
        spokenText: line.spokenText
        listFocused: line.listFocused
        isCurrent: line.isCurrent
        onChosen: line.chosen()
        onOpened: line.opened()

        contentItem: Item {
            DeskText {
                id: date

                x: Theme.gridPadding
                y: line.isStep ? Theme.space2 : (parent.height - height) / 2
                width: PageSizes.timelineDate
                type: DeskText.Secondary
                color: Theme.text2
                text: line.date
                Accessible.ignored: true
            }
            SourcingBadge {
                anchors.left: date.right
                y: Theme.space2
                visible: line.isStep && sourcing !== StorySourcing.Unlabeled
                sourcing: line.sourcing
                text: line.label
            }
            Badge {
                anchors.left: date.right
                y: Theme.space2
                visible: line.isStep && line.sourcing === StorySourcing.Unlabeled
                kind: Badge.Fresh
                text: line.label
            }
            DeskText {
                id: title

                anchors.left: date.right
                anchors.leftMargin: line.isStep ? PageSizes.timelineBadge : 0
                y: line.isStep ? Theme.space2 - Theme.step2 : (parent.height - height) / 2
                width: (line.isStep ? days.x : who.x) - x - Theme.space3
                type: line.isStep ? DeskText.BaseMedium : DeskText.Secondary
                text: line.isHeading ? "" : line.title
                Accessible.ignored: true
            }
            DeskText {
                id: who

                x: line.isStep ? title.x : parent.width - Theme.gridPadding - PageSizes.timelineOutcome - width - Theme.space3
                anchors.top: line.isStep ? title.bottom : parent.top
                anchors.topMargin: line.isStep ? 0 : (parent.height - height) / 2
                width: line.isStep ? Math.min(implicitWidth, title.width / 2) : PageSizes.timelineClaimant
                type: line.isStep ? DeskText.MetaMedium : DeskText.Secondary
                color: Theme.text2
                text: line.outlet
                Accessible.ignored: true
            }
            DeskText {
                anchors.left: who.right
                anchors.baseline: who.baseline
                width: days.x - x - Theme.space3
                visible: line.isStep && line.detail !== ""
                type: DeskText.Meta
                color: Theme.text3
                text: line.outlet ? qsTr(" · %1").arg(line.detail) : line.detail
                Accessible.ignored: true
            }
            DeskText {
                id: days

                anchors.right: parent.right
                anchors.rightMargin: Theme.gridPadding
                y: line.isStep ? Theme.space2 : (parent.height - height) / 2
                width: line.isStep ? implicitWidth : PageSizes.timelineOutcome
                horizontalAlignment: Text.AlignRight
                type: line.isStep ? DeskText.Secondary : DeskText.SecondaryMedium
                color: line.outcome === 1 ? Theme.green : line.outcome === 2 ? Theme.red : Theme.text2
                text: line.days
                Accessible.ignored: true
            }
        }
    }
}
