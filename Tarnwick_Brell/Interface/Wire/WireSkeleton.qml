pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls

/// Placeholders for rows that are loading, with their geometry and fainter downwards.
Item {
    id: skeleton

    clip: true
    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("Loading stories")

    Column {
        width: parent.width

        Repeater {
            model: 7

            Item {
                required property int index

                width: skeleton.width
                height: Theme.wireRowTall
                opacity: 1 - index * 0.13

                Skeleton {
                    x: Theme.rowText
                    y: Theme.space3
                    width: Theme.space8 * 3
                    height: Theme.space2
                }
                Skeleton {
                    x: Theme.rowText
                    y: Theme.space8
                    width: parent.width * (0.7 - parent.index % 3 * 0.1)
                    height: Theme.space3
                }
                Skeleton {
                    x: Theme.rowText
                    y: Theme.space8 + Theme.space6
                    width: parent.width * (0.8 - parent.index % 2 * 0.15)
                    height: Theme.space2
                }
                Hairline {
                    anchors.bottom: parent.bottom
                    x: Theme.rowText
                    width: parent.width - x
                }
            }
        }
    }
}
