import QtQuick

/// The root of a page. Keys that the window handles reach the page through these functions.
FocusScope {
    // Of the loader, which has the focus while the page is shown.
    focus: true

    /// j and k: the next and the previous row.
    function step(by: int) {
    }
    /// F6: to the pane, and back to the list.
    function switchPane() {
    }
}
