import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A row of the sidebar: a label, a place, a group of sources or a source.
T.ItemDelegate {
    id: item

    required property int index
    required property int kind
    required property string key
    required property string title
    required property string symbol
    required property string count
    required property int mark
    required property bool isExpanded
    required property bool isCurrent
    required property string spokenText
    required property string hint
    required property bool isNewsroom
    required property bool isBeat
    required property bool takesStories

    property bool keyboardHere: false
    /// The kind of data of a story that is dragged within the window.
    property string storyKind

    signal menuWanted(x: real, y: real)
    /// A newsroom or beat is dragged to another place; `at` in the coordinates of the window.
    signal pulled(at: point)
    signal dropped
    /// A story was dragged here.
    signal storyDropped(storyID: string)

    readonly property bool isSection: kind === SidebarKind.Section
    readonly property bool isGroup: kind === SidebarKind.Group
    readonly property bool isSource: kind === SidebarKind.Source
    readonly property bool isFaded: mark === SourceMark.Never

    implicitHeight: Theme.sidebarItem + (isSection && index > 0 ? Theme.space2 : 0)
    /// A label that leads to a page.
    readonly property bool leads: isSection && key !== ""
    enabled: !isSection || leads
    hoverEnabled: enabled
    focusPolicy: Qt.NoFocus
    Accessible.role: isSection ? Accessible.Heading : Accessible.TreeItem
    Accessible.name: spokenText
    Accessible.description: hint
    Accessible.selected: isCurrent
    Accessible.onPressAction: clicked()

    background: Rectangle {
        anchors.fill: parent
        anchors.topMargin: item.height - Theme.sidebarItem
        anchors.leftMargin: Theme.space2
        anchors.rightMargin: Theme.space2
        radius: Theme.radiusControl
        color: item.isSection && !item.leads ? "transparent" : item.isCurrent ? Theme.navSelected
             : item.down ? Theme.press : item.hovered ? Theme.press : "transparent"
        border.width: item.keyboardHere ? Theme.focusRing : 0
        border.color: Theme.accent
    }

    contentItem: Item {
        Symbol {
            x: Theme.space4
            anchors.verticalCenter: parent.verticalCenter
            visible: !item.isSection && !item.isSource
            name: item.isGroup ? (item.isExpanded ? "chevron.down" : "chevron.right") : item.symbol
            size: item.isGroup ? Theme.iconInMeta : Theme.icon
            anchors.horizontalCenterOffset: 0
            color: item.isCurrent ? Theme.accentText : Theme.text2
        }
        StatusMark {
            x: Theme.space4
            anchors.verticalCenter: parent.verticalCenter
            visible: item.isSource && item.mark !== SourceMark.None
            box: Theme.markBoxSidebar
            status: {
                switch (item.mark) {
                case SourceMark.Fresh:
                    return StatusMark.Fresh;
                case SourceMark.Unchanged:
                    return StatusMark.Unchanged;
                case SourceMark.Failing:
                    return StatusMark.Failing;
                default:
                    return StatusMark.Never;
                }
            }
            Accessible.ignored: true
        }
        DeskText {
            x: Theme.space4 + (item.isSection ? 0 : Math.max(Theme.space6, Theme.icon + Theme.space2))
            y: item.isSection ? parent.height - Theme.sidebarItem + (Theme.sidebarItem - height) / 2
                              : (parent.height - height) / 2
            width: counter.x - x - Theme.space2
            type: item.isSection ? DeskText.MetaStrong
                : item.isGroup ? DeskText.BaseMedium
                : item.isCurrent ? DeskText.BaseMedium : DeskText.Base
            color: item.isSection && item.isCurrent ? Theme.text1 : item.isSection || item.isFaded ? Theme.text3 : item.isGroup ? Theme.text2 : Theme.text1
            text: item.title
            Accessible.ignored: true
        }
        DeskText {
            id: counter

            anchors.right: parent.right
            anchors.rightMargin: Theme.space4
            anchors.verticalCenter: parent.verticalCenter
            type: DeskText.Meta
            color: Theme.text3
            text: item.count
            Accessible.ignored: true
        }
    }

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => item.menuWanted(eventPoint.position.x, eventPoint.position.y)
    }
    DragHandler {
        enabled: item.isNewsroom || item.isBeat
        target: null
        xAxis.enabled: false
        grabPermissions: PointerHandler.CanTakeOverFromAnything
        onCentroidChanged: if (active)
            item.pulled(centroid.scenePosition)
        onActiveChanged: if (!active)
            item.dropped()
    }
    DropArea {
        anchors.fill: parent
        enabled: item.takesStories
        keys: [item.storyKind]
        onDropped: drop => {
            item.storyDropped(drop.getDataAsString(item.storyKind));
            drop.accept(Qt.CopyAction);
        }

        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: Theme.space2
            anchors.rightMargin: Theme.space2
            visible: (parent as DropArea).containsDrag
            radius: Theme.radiusControl
            color: "transparent"
            border.width: Theme.focusRing
            border.color: Theme.accent
        }
    }
    Tip {
        visible: item.hovered && item.hint !== ""
        text: item.hint
    }
}
