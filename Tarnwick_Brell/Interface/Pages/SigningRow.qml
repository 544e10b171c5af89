pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A device of the signing matrix with its cells in sight.
TableRow {
    id: device

    required property SigningPageModel content
    required property int row
    required property string name
    required property string identifier
    required property list<int> marks
    required property string trouble
    required property int cellsX
    required property int first
    required property int columnsShown
    /// The column of the cell that is read; -1 for none.
    required property int reached
    property bool pale: false
    /// The column under the pointer.
    property int pointed: -1
    readonly property int told: reached >= 0 ? reached : pointed

    signal cellChosen(column: int)

    contentItem: Item {
        DeskText {
            id: name
            x: Theme.gridPadding
            width: Math.min(implicitWidth, device.cellsX - x - Theme.space2)
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.SecondaryMedium
            text: device.name
            color: device.pale ? Theme.text2 : Theme.text1
            Accessible.ignored: true
        }
        DeskText {
            anchors.left: name.right
            anchors.leftMargin: Theme.space2
            width: device.cellsX - x - Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            visible: width > Theme.space8
            type: DeskText.Meta
            text: device.trouble || device.identifier
            color: device.trouble ? Theme.amber : Theme.text3
            Accessible.ignored: true
        }
        Repeater {
            model: device.columnsShown

            Item {
                id: cell

                required property int index
                readonly property int column: device.first + index
                readonly property bool isRead: column === device.reached

                x: device.cellsX + index * PageSizes.signingColumn
                width: PageSizes.signingColumn
                height: device.height
                Accessible.role: Accessible.Cell
                Accessible.name: device.content.spokenCell(device.row, column)
                Accessible.selected: isRead

                SigningMark {
                    anchors.centerIn: parent
                    mark: cell.column < device.marks.length ? device.marks[cell.column] : SigningCell.NeverOffered
                    pale: device.pale
                }
                Rectangle {
                    anchors.fill: parent
                    anchors.margins: Theme.step1
                    visible: cell.isRead
                    radius: Theme.radiusBadge
                    color: "transparent"
                    border.width: Theme.focusRing
                    border.color: Theme.accent
                }
                HoverHandler {
                    onHoveredChanged: {
                        if (hovered)
                            device.pointed = cell.column;
                        else if (device.pointed === cell.column)
                            device.pointed = -1;
                    }
                }
                TapHandler {
                    onTapped: device.cellChosen(cell.column)
                }
            }
        }
        Item {
            x: device.cellsX + (device.told - device.first) * PageSizes.signingColumn
            width: PageSizes.signingColumn
            height: parent.height

            Tip {
                visible: device.told >= 0 && text !== ""
                delay: device.reached >= 0 ? 0 : Theme.tipDelay
                text: device.content.cellText(device.row, device.told)
            }
        }
    }
}
