import QtQuick
import QtQuick.Templates as T
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The list of a panel: one tab stop, navigated by arrow keys, opened by Enter.
ListView {
    id: list

    signal opened(index: int)

    required property string name
    /// Gives the stories of rows that are dragged out.
    property PanelModel origin: null
    readonly property bool opens: true

    anchors.fill: parent
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    keyNavigationEnabled: true
    reuseItems: true
    T.ScrollBar.vertical: ThinScrollBar {}
    Accessible.role: Accessible.List
    Accessible.name: name
    Keys.onReturnPressed: opened(currentIndex)
    Keys.onEnterPressed: opened(currentIndex)

    WholeRows {
        list: list
    }
}
