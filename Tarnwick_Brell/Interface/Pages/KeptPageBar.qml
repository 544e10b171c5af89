import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The search of a page of what the user keeps.
PageBar {
    id: bar

    required property KeptListPageModel content

    page: content
    hasRefresh: false
    fieldText: content.words
    onFieldEdited: text => content.words = text
}
