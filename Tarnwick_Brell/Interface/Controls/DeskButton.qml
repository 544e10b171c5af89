import QtQuick

/// A button with text. A view has at most one `Primary`; `Quiet` has no outline and is for a
/// secondary action; `Danger` is for red cards.
PlainButton {
    id: button

    enum Look { Plain, Primary, Quiet, Danger }

    property int look: DeskButton.Plain
    property string symbol
    /// Buttons in a sheet's foot are higher.
    property bool inSheet: false

    readonly property bool primary: look === DeskButton.Primary
    readonly property color ink: [Theme.text1, Theme.textOnAccent, Theme.text2, Theme.red][look]

    horizontalPadding: inSheet ? Theme.sheetControlPadding : Theme.controlPadding
    contentItem: Item {
        implicitWidth: row.implicitWidth
        implicitHeight: row.implicitHeight

        Row {
            id: row
            anchors.centerIn: parent
            spacing: Theme.space2

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: button.symbol
                name: button.symbol
                size: Theme.iconInHeader
                color: button.ink
            }
            DeskText {
                type: button.inSheet ? DeskText.BaseMedium : DeskText.SecondaryMedium
                text: button.text
                color: button.ink
                Accessible.ignored: true
            }
            KeyCap {
                anchors.verticalCenter: parent.verticalCenter
                visible: button.key && !button.tip
                text: button.key
                ink: button.primary ? Theme.textOnAccent : Theme.text3
            }
        }
    }
    background: Rectangle {
        implicitHeight: button.inSheet ? Theme.controlInSheet : Theme.control
        radius: Theme.radiusControl
        color: button.primary ? button.down ? Theme.accentPress : button.hovered ? Theme.accentHover : Theme.accent
             : button.down ? Theme.press : button.hovered ? Theme.hover
             : button.look === DeskButton.Plain ? Theme.surface : "transparent"
        border.width: button.look === DeskButton.Plain || button.look === DeskButton.Danger ? Theme.line : 0
        border.color: button.look === DeskButton.Danger ? Theme.redMark : Theme.border
    }

    FocusRing { control: button }
}
