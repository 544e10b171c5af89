import QtQuick
import QtQuick.Templates as T

/// A menu of DeskMenuItem and MenuLine.
T.Menu {
    id: menu

    readonly property real widest: {
        let width = 0;
        for (let i = 0; i < count; ++i)
            width = Math.max(width, itemAt(i).implicitWidth);
        return width;
    }

    implicitWidth: Math.min(Theme.menuMost, Math.max(Theme.menuLeast, widest + leftPadding + rightPadding))
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: Theme.space2
    padding: Theme.space1
    delegate: DeskMenuItem {}
    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        currentIndex: menu.currentIndex
        clip: true
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: ThinScrollBar {}
    }
    background: MenuBackground {}
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.fade; easing.type: Easing.OutQuad }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; from: 1; to: 0; duration: Theme.fade; easing.type: Easing.OutQuad }
    }
}
