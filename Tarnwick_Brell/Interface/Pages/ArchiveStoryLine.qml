import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// A story of the archive; the bookmark marks one that the library has.
TableRow {
    id: line

    required property int index
    required property string time
    required property string source
    required property string title
    required property bool isInLibrary
    required property string storyID
    required property string link
    required property ArchivePageModel content

    implicitHeight: words.implicitHeight + Theme.compactPaddingTop + Theme.compactPaddingBottom

    Drag.active: dragging.active
    Drag.dragType: Drag.Automatic
    Drag.supportedActions: Qt.CopyAction
    Drag.mimeData: dragging.active ? content.dragData(storyID || link) : ({})

    // Upwards and downwards the list scrolls.
    DragHandler {
        id: dragging

        target: null
        yAxis.enabled: false
        acceptedDevices: PointerDevice.Mouse
    }

    contentItem: Item {
        Column {
            id: words

            x: line.start
            y: Theme.compactPaddingTop
            width: parent.width - 2 * x
            spacing: Theme.step2

            Item {
                width: parent.width
                height: time.height

                DeskText {
                    id: time

                    width: Math.max(implicitWidth, Theme.ageColumn)
                    type: DeskText.Meta
                    text: line.time
                    color: Theme.text3
                    Accessible.ignored: true
                }
                DeskText {
                    anchors.left: time.right
                    anchors.right: mark.left
                    anchors.rightMargin: Theme.space2
                    type: DeskText.MetaMedium
                    text: line.source
                    color: Theme.text2
                    Accessible.ignored: true
                }
                Symbol {
                    id: mark

                    anchors.right: parent.right
                    visible: line.isInLibrary
                    name: "bookmark.fill"
                    size: Theme.iconInMeta
                    color: Theme.accent
                }
            }
            DeskText {
                width: parent.width
                lines: 2
                text: line.title
                Accessible.ignored: true
            }
        }
    }
}
