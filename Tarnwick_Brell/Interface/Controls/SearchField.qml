import QtQuick

/// A field that narrows what is shown as one types.
DeskField {
    symbol: "magnifyingglass"
    clearable: true
    clearsOnEscape: true
    Accessible.searchEdit: true
}
