pragma ComponentBehavior: Bound

import QtQuick
import TarnwickBrell.Controls

/// Placeholder rows with the geometry of the real ones. `figures` is for rows that begin with a
/// number.
Column {
    id: skeleton

    property bool figures: false

    readonly property int rowHeight: figures ? Theme.topStoriesRow
        : Theme.compactPaddingTop + Theme.badge + Theme.step2 + Theme.panelLine + Theme.compactPaddingBottom
    readonly property list<real> lengths: [0.86, 0.74, 0.9, 0.66, 0.82]

    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("Loading")

    Repeater {
        model: Math.max(0, Math.min(skeleton.lengths.length, Math.floor(skeleton.height / skeleton.rowHeight)))

        Item {
            id: row

            required property int index
            readonly property real textX: skeleton.figures ? Theme.control + Theme.space6 : 0

            width: skeleton.width
            height: skeleton.rowHeight

            Skeleton {
                y: Theme.space3
                visible: skeleton.figures
                width: Theme.badge
                height: Theme.badge
                depth: row.index
            }
            Skeleton {
                y: Theme.space8 + Theme.space1
                visible: skeleton.figures
                width: Theme.space8
                height: Theme.space2
                depth: row.index
            }
            Skeleton {
                x: row.textX
                y: Theme.space3
                width: (row.width - x) * (skeleton.figures ? skeleton.lengths[row.index] : 0.4)
                height: skeleton.figures ? Theme.space3 : Theme.space2
                depth: row.index
            }
            Skeleton {
                x: row.textX
                y: skeleton.figures ? Theme.space8 + Theme.space1 : Theme.space7
                width: (row.width - x) * (skeleton.figures ? 0.4 : skeleton.lengths[row.index])
                height: Theme.space3
                depth: row.index
            }
            Hairline {
                anchors.bottom: parent.bottom
                width: parent.width
            }
        }
    }
}
