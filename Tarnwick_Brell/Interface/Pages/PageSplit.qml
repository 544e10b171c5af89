import QtQuick
import TarnwickBrell.Controls

/// A page's list or table with a pane at its right. Where there is too little room for both, the
/// pane is a page of its own: a button or F6 opens it, Esc or its Back button closes it.
FocusScope {
    id: split

    default property alias main: mainSlot.data
    required property PagePane pane
    property int paneWidth: PageSizes.paneLog
    property int mainLeast: Theme.wireLeast

    readonly property bool isBeside: width - paneWidth - Theme.line >= mainLeast
    /// The pane covers the list.
    property bool isCovered: false

    function openPane() {
        isCovered = !isBeside;
        pane.forceActiveFocus();
    }
    function closePane() {
        isCovered = false;
        mainSlot.forceActiveFocus();
    }
    function switchPane() {
        if (pane.activeFocus)
            closePane();
        else
            openPane();
    }

    onIsBesideChanged: isCovered = !isBeside && pane.activeFocus

    FocusScope {
        id: mainSlot

        width: split.isBeside ? split.width - split.paneWidth - Theme.line : split.width
        height: split.height
        visible: !split.isCovered
        focus: true
    }
    Hairline {
        vertical: true
        x: mainSlot.width
        height: split.height
        visible: split.isBeside
    }
    Binding {
        target: split.pane
        property: "parent"
        value: split
    }
    Binding {
        target: split.pane
        property: "x"
        value: split.isBeside ? mainSlot.width + Theme.line : 0
    }
    Binding {
        target: split.pane
        property: "width"
        value: split.isBeside ? split.paneWidth : split.width
    }
    Binding {
        target: split.pane
        property: "height"
        value: split.height
    }
    Binding {
        target: split.pane
        property: "visible"
        value: split.isBeside || split.isCovered
    }
    Binding {
        target: split.pane
        property: "standsAlone"
        value: split.isCovered
    }
    Connections {
        target: split.pane

        function onBackWanted() {
            split.closePane();
        }
    }
}
