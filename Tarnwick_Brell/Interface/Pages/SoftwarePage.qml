pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What each platform runs, and below it every release that the desk has seen.
PageBody {
    id: page

    required property SoftwarePageModel content
    readonly property bool pale: content.state === PanelModel.Stale

    function step(by: int) {
        list.step(by);
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    SoftwareColumns {
        id: places

        width: list.width
    }
    TableList {
        id: list

        function canChoose(row: int): bool {
            return page.content.isRelease(row);
        }

        function takesKey(event: KeyEvent): bool {
            if (event.key !== Qt.Key_C || event.modifiers !== Qt.ControlModifier)
                return movedBy(event.key);
            page.content.copyRow(currentIndex);
            return true;
        }

        anchors.fill: parent
        focus: true
        label: qsTr("Releases")
        model: page.content.rows
        onCurrentIndexChanged: page.content.row = currentIndex
        onOpened: row => page.content.openRow(row)

        head: Column {
            width: list.width

            Rectangle {
                width: parent.width
                height: tiles.height + 2 * Theme.gridPadding
                color: Theme.canvas

                Grid {
                    id: tiles

                    readonly property real inner: parent.width - 2 * Theme.gridPadding
                    readonly property int most: Math.floor((inner + PageSizes.cardGap) / (PageSizes.platformCardLeast + PageSizes.cardGap))

                    x: Theme.gridPadding
                    y: Theme.gridPadding
                    // Rows of about the same length.
                    columns: Math.max(1, Math.ceil(repeater.count / Math.ceil(repeater.count / Math.max(1, most))))
                    spacing: PageSizes.cardGap

                    Repeater {
                        id: repeater

                        model: page.content.cards

                        PlatformTile {
                            width: Math.floor((tiles.inner - (tiles.columns - 1) * PageSizes.cardGap) / tiles.columns)
                            pale: page.pale
                            onClicked: page.content.toggleCard(index)
                        }
                    }
                }
                Hairline {
                    anchors.bottom: parent.bottom
                    width: parent.width
                }
            }
            TableHeader {
                width: parent.width

                ColumnName {
                    x: places.start
                    text: qsTr("Platform")
                }
                ColumnName {
                    x: places.versionX
                    text: qsTr("Version")
                }
                ColumnName {
                    x: places.buildX
                    text: qsTr("Build")
                }
                ColumnName {
                    x: places.channelX
                    text: qsTr("Channel")
                }
                ColumnName {
                    x: places.afterX + PageSizes.releaseAfter - width
                    visible: places.hasAfter
                    text: qsTr("After")
                }
                ColumnName {
                    x: places.titleX
                    visible: places.hasTitle
                    text: qsTr("What it says")
                }
                ColumnName {
                    x: places.seenX + PageSizes.releaseSeen - width
                    visible: places.hasSeen
                    text: qsTr("Seen")
                }
            }
        }
        foot: Item {
            width: list.width
            height: nothing.visible ? nothing.height + 2 * Theme.space8 : Theme.space5

            EmptyState {
                id: nothing

                anchors.centerIn: parent
                visible: list.count === 0
                text: qsTr("No release passes these filters.")
                hint: qsTr("The desk lists the releases that it has seen since it was first started.")
            }
        }

        delegate: ReleaseLine {
            width: list.width
            columns: places
            pale: page.pale
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
            onOpened: page.content.openRow(index)
            onCopied: page.content.copyRow(index)
        }
    }
}
