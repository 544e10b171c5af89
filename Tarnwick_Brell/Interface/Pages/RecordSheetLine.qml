import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A line of a record: a heading, a named fact, a row of a table, a paragraph, a document that
/// unfolds, a link.
PlainButton {
    id: line

    required property int index
    required property int kind
    required property string lead
    required text
    required property string note
    required property string link
    required property bool isOpen
    required property string spokenText

    property bool isCurrent: false
    readonly property bool isHeading: kind === SheetLineKind.Heading
    readonly property bool isText: kind === SheetLineKind.Text
    readonly property bool isDocument: kind === SheetLineKind.Document
    readonly property bool acts: isDocument || kind === SheetLineKind.Link && link !== ""
    readonly property int textX: isText || isHeading ? 0 : isDocument ? Theme.space5 + PageSizes.sheetExhibit : PageSizes.sheetLead

    signal acted

    implicitHeight: isText ? words.height + Theme.space2 : Math.max(isHeading ? Theme.sectionLabel + Theme.space2 : Theme.tableRow, words.height + Theme.space2, lead.height + Theme.space2)
    enabled: acts
    opacity: 1
    focusPolicy: Qt.NoFocus
    onClicked: acted()
    Accessible.role: isHeading ? Accessible.Heading : isDocument ? Accessible.Button : acts ? Accessible.Link : Accessible.StaticText
    Accessible.name: spokenText

    background: Rectangle {
        anchors.fill: parent
        anchors.leftMargin: Theme.space3
        anchors.rightMargin: Theme.space3
        radius: Theme.radiusControl
        color: line.isCurrent ? Theme.selected : line.acts && line.down ? Theme.press : line.acts && line.hovered ? Theme.hover : "transparent"

        Hairline {
            anchors.bottom: parent.bottom
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: Theme.rowText - Theme.space3
            anchors.rightMargin: Theme.rowText - Theme.space3
            visible: line.kind === SheetLineKind.Row || line.isDocument || line.kind === SheetLineKind.Link
        }
    }
    contentItem: Item {
        Symbol {
            x: Theme.rowText - Theme.space1
            anchors.verticalCenter: parent.verticalCenter
            visible: line.isDocument
            name: line.isOpen ? "chevron.down" : "chevron.right"
            color: Theme.text3
        }
        DeskText {
            id: lead

            x: Theme.rowText + (line.isDocument ? Theme.space5 : 0)
            y: words.y
            width: line.textX - (line.isDocument ? Theme.space5 : 0) - Theme.space2
            visible: width > 0
            lines: 2
            type: line.isDocument || line.kind === SheetLineKind.Row ? DeskText.SecondaryStrong : DeskText.Secondary
            color: line.isDocument || line.kind === SheetLineKind.Row ? Theme.text1 : Theme.text3
            text: line.lead
            Accessible.ignored: true
        }
        DeskText {
            id: words

            x: Theme.rowText + line.textX
            y: line.isHeading ? parent.height - height - Theme.space1 : (parent.height - height) / 2
            width: (note.visible ? note.x - Theme.space2 : parent.width - Theme.rowText) - x
            lines: line.isText ? PageSizes.sheetParagraphLines : 3
            type: line.isHeading ? DeskText.MetaStrong : line.isText ? DeskText.Base : DeskText.Secondary
            color: line.isHeading ? Theme.text2 : line.acts && !line.isDocument ? Theme.accentText : Theme.text1
            text: line.text
            Accessible.ignored: true
        }
        DeskText {
            id: note

            anchors.right: parent.right
            anchors.rightMargin: Theme.rowText
            y: words.y
            visible: text
            type: line.isHeading ? DeskText.Meta : DeskText.Secondary
            color: Theme.text3
            text: line.note
            Accessible.ignored: true
        }
    }
}
