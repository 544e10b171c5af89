import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

PageBar {
    required property RemovedPageModel content

    page: content
    hasRefresh: false
}
