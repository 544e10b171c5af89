pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A new newsroom: at the left what it is made from, at the right its name and what it will be.
Sheet {
    id: sheet

    required property NewNewsroomSheetModel content

    readonly property real room: (parent ? parent.height : 0) - 2 * margins - Theme.sheetHeader - Theme.sheetFoot - Theme.space6
    readonly property real half: Math.floor((body.width - Theme.space6) * Theme.sheetFormShare)

    title: qsTr("New newsroom")
    implicitWidth: Theme.wideSheetWidth

    Item {
        id: body

        width: parent ? parent.width : 0
        height: Math.min(Theme.newNewsroomHeight, sheet.room)

        SegmentedControl {
            id: ways

            raised: true
            label: qsTr("Made from")
            model: [qsTr("From kinds"), qsTr("Template"), qsTr("From a file")]
            currentIndex: sheet.content.way
            onActivated: index => sheet.content.way = index
        }
        GridView {
            id: templates

            anchors.top: ways.bottom
            anchors.topMargin: Theme.space3
            anchors.bottom: parent.bottom
            width: sheet.half
            visible: sheet.content.way === NewNewsroomSheetModel.Template
            cellWidth: Math.floor(width / 2)
            cellHeight: Theme.templateCard + Theme.space3
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            activeFocusOnTab: true
            model: sheet.content.templates
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Templates")
            Keys.onReturnPressed: sheet.content.chooseTemplate(currentIndex)
            Keys.onSpacePressed: sheet.content.chooseTemplate(currentIndex)
            onCurrentIndexChanged: if (activeFocus)
                sheet.content.chooseTemplate(currentIndex)
            T.ScrollBar.vertical: ThinScrollBar {}

            delegate: TemplateCard {
                width: templates.cellWidth - Theme.space3
                height: Theme.templateCard
                keyboardHere: templates.activeFocus && GridView.isCurrentItem
                onChosen: {
                    templates.currentIndex = index;
                    sheet.content.chooseTemplate(index);
                }
            }
        }
        ListView {
            id: kinds

            anchors.top: ways.bottom
            anchors.topMargin: Theme.space3
            anchors.bottom: parent.bottom
            width: sheet.half
            visible: sheet.content.way === NewNewsroomSheetModel.Kinds
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: sheet.content.kinds
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Kinds of panels")
            T.ScrollBar.vertical: ThinScrollBar {}

            delegate: DeskCheckBox {
                required property int index
                required property string title
                required property string description
                required property bool isChosen

                width: kinds.width
                height: Theme.tableRow
                text: qsTr("%1: %2").arg(title).arg(description)
                checked: isChosen
                onToggled: {
                    sheet.content.toggleKind(index);
                    checked = Qt.binding(() => isChosen);
                }
            }
        }
        Column {
            anchors.top: ways.bottom
            anchors.topMargin: Theme.space3
            width: sheet.half
            visible: sheet.content.way === NewNewsroomSheetModel.File
            spacing: Theme.space2

            DeskField {
                id: file

                width: parent.width
                outlined: true
                main: true
                label: qsTr("File")
                placeholderText: qsTr("Path of an exported newsroom, or drop the file here")
                onAccepted: sheet.content.readFile(text)
            }
            DeskButton {
                text: qsTr("Read the file")
                enabled: file.text !== ""
                onClicked: sheet.content.readFile(file.text)
            }
            DeskText {
                width: parent.width
                visible: text !== ""
                type: DeskText.Secondary
                lines: 5
                color: sheet.content.fileFailed ? Theme.red : Theme.text2
                text: sheet.content.fileText
            }
        }
        DropArea {
            width: sheet.half
            height: parent.height
            onDropped: drop => {
                if (!drop.hasUrls)
                    return;
                sheet.content.way = NewNewsroomSheetModel.File;
                sheet.content.readFile(drop.urls[0].toString());
            }
        }
        Column {
            anchors.right: parent.right
            width: body.width - sheet.half - Theme.space6
            spacing: Theme.space3

            Item {
                width: parent.width
                height: name.y + name.height

                DeskText {
                    id: nameLabel

                    type: DeskText.MetaStrong
                    color: Theme.text3
                    text: qsTr("Name")
                }
                DeskField {
                    id: name

                    y: nameLabel.height + Theme.space1
                    width: parent.width - symbol.width - Theme.space2
                    focus: true
                    outlined: true
                    label: qsTr("Name")
                    placeholderText: sheet.content.proposedName
                    onTextEdited: sheet.content.name = text
                    onAccepted: sheet.content.make()
                }
                IconButton {
                    id: symbol

                    anchors.right: parent.right
                    anchors.verticalCenter: name.verticalCenter
                    symbol: sheet.content.symbol
                    text: qsTr("Choose the symbol")
                    onClicked: symbols.open()

                    SymbolPicker {
                        id: symbols

                        symbols: sheet.content.symbols
                        current: sheet.content.symbol
                        onChosen: name => sheet.content.symbol = name
                    }
                }
            }
            Item {
                width: parent.width
                height: focusLabel.height

                DeskText {
                    id: focusLabel

                    width: count.x - Theme.space2
                    type: DeskText.MetaStrong
                    color: Theme.text3
                    text: qsTr("Focus: what its panels are about")
                }
                DeskText {
                    id: count

                    anchors.right: parent.right
                    type: DeskText.Meta
                    color: Theme.text3
                    text: sheet.content.countText
                }
            }
            WordTokensField {
                width: parent.width
                label: qsTr("Focus: what its panels are about")
                placeholder: qsTr("Everything about Apple")
                words: sheet.content.words
                onAdded: text => sheet.content.addWords(text)
                onRemoved: index => sheet.content.removeWord(index)
            }
            ProposedWords {
                width: parent.width
                words: sheet.content.proposedWords
                onChosen: word => sheet.content.addWords(word)
            }
            DeskText {
                type: DeskText.MetaStrong
                color: Theme.text3
                text: sheet.content.planText
            }
            GridPlan {
                width: parent.width
                height: Math.max(0, Math.min(Theme.planHeight, body.height - y))
                visible: sheet.content.canMake
                panels: sheet.content.plan
                rowsUsed: sheet.content.planRows
            }
        }
    }

    foot: [
        DeskButton {
            inSheet: true
            text: qsTr("Cancel")
            onClicked: sheet.close()
        },
        DeskButton {
            inSheet: true
            look: DeskButton.Primary
            text: qsTr("Make newsroom")
            enabled: sheet.content.canMake
            onClicked: sheet.content.make()
        }
    ]
}
