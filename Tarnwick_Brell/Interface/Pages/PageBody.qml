import QtQuick

/// The root of a page. Keys that the window handles reach the page through these functions.
FocusScope {
    // Of the loader, which has the focus while the page is shown.
    focus: true

    /// j and k: the next and the previous row.
    function step(by: int) {
    }
    /// What can be done with the selected row is to be shown, at that point of the item.
    signal menuWanted(item: Item, at: point)

    /// Shift+F10: the same, at the selected row.
    function openMenu() {
        menuWanted(this, Qt.point(0, 0));
    }
    /// F6: to the pane, and back to the list.
    function switchPane() {
    }
}
