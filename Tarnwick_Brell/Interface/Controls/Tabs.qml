pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T

/// The parts of a page as tabs in its toolbar. It shows `currentIndex` and does not change it: the
/// handler of `activated` does. `counts` are unread ones, in the order of `model`; 0 shows none.
T.Control {
    id: tabs

    signal activated(index: int)

    property list<string> model
    property list<int> counts
    property int currentIndex: 0
    /// What the tabs divide, for screen readers.
    property string label

    implicitWidth: implicitContentWidth
    implicitHeight: Theme.toolbar
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.PageTabList
    Accessible.name: label
    Keys.onLeftPressed: step(mirrored ? 1 : -1)
    Keys.onRightPressed: step(mirrored ? -1 : 1)

    function step(by: int) {
        const next = currentIndex + by;
        if (next >= 0 && next < model.length)
            activated(next);
    }
    /// Ctrl+Tab: the last is followed by the first.
    function cycle(by: int) {
        if (model.length > 0)
            activated((currentIndex + by + model.length) % model.length);
    }

    contentItem: Row {
        Repeater {
            model: tabs.model

            T.AbstractButton {
                id: tab

                required property string modelData
                required property int index
                readonly property bool current: index === tabs.currentIndex
                readonly property int count: index < tabs.counts.length ? tabs.counts[index] : 0

                implicitWidth: Math.max(Theme.leastTarget, words.implicitWidth + 2 * Theme.chipPadding)
                height: tabs.height
                hoverEnabled: true
                focusPolicy: Qt.NoFocus
                onClicked: if (!current) tabs.activated(index)
                contentItem: Item {
                    DeskText {
                        id: words
                        anchors.centerIn: parent
                        type: DeskText.SecondaryMedium
                        text: tab.count > 0 ? qsTr("%1 %2").arg(tab.modelData).arg(tab.count) : tab.modelData
                        color: tab.current || tab.hovered ? Theme.text1 : Theme.text2
                        Accessible.ignored: true
                    }
                }
                background: Item {
                    Rectangle {
                        anchors.bottom: parent.bottom
                        width: parent.width
                        height: Theme.focusRing
                        visible: tab.current
                        color: Theme.accent
                    }
                }
                Accessible.role: Accessible.PageTab
                Accessible.name: tab.count > 0 ? qsTr("%1, %2 unread").arg(modelData).arg(count) : modelData
                Accessible.selected: current
            }
        }
    }
    background: Item {
        FocusRing {
            control: tabs
            inside: true
        }
    }
}
