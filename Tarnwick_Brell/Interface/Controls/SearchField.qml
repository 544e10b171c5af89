import QtQuick

/// A field that filters while the user types.
DeskField {
    symbol: "magnifyingglass"
    clearable: true
    clearsOnEscape: true
    Accessible.searchEdit: true
}
