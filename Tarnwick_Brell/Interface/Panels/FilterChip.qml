pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A filter with a menu of choices.
Chip {
    id: chip

    required property FilterOptions choices

    text: choices.summary
    active: choices.isActive
    onClicked: popup.open()
    onCleared: choices.clear()
    Accessible.name: choices.isActive ? qsTr("%1: %2").arg(choices.name).arg(choices.summary) : choices.name

    // A menu creates all of its items at once, and the sources may be a thousand.
    T.Popup {
        id: popup

        y: chip.height + Theme.space1
        implicitWidth: Math.min(Theme.menuMost, Math.max(Theme.menuLeast, list.widest + leftPadding + rightPadding))
        implicitHeight: list.contentHeight + topPadding + bottomPadding
        margins: Theme.space2
        padding: Theme.space1
        modal: true
        dim: false
        focus: true
        onClosed: chip.forceActiveFocus(Qt.PopupFocusReason)

        contentItem: ListView {
            id: list

            /// The widest item that has been visible.
            property real widest: 0

            model: chip.choices.rows
            clip: true
            focus: true
            currentIndex: -1
            interactive: contentHeight > height
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: true
            Accessible.role: Accessible.PopupMenu
            Accessible.name: chip.choices.name

            delegate: DeskMenuItem {
                required property int index
                required property string label
                required property bool isChosen

                width: list.width
                text: label
                checkable: true
                checked: isChosen
                highlighted: ListView.isCurrentItem
                onHoveredChanged: if (hovered)
                    list.currentIndex = index
                onImplicitWidthChanged: list.widest = Math.max(list.widest, implicitWidth)
                onClicked: choose()
                Keys.onReturnPressed: choose()
                Keys.onEnterPressed: choose()

                function choose() {
                    popup.close();
                    chip.choices.toggle(index);
                }
            }

            T.ScrollBar.vertical: ThinScrollBar {}
        }
        background: MenuBackground {}
    }
}
