pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The releases that a timeline's subject names.
PagePane {
    id: pane

    required property TimelinePageModel content

    title: qsTr("Releases of the same subject")
    fact: list.count > 0 ? "" + list.count : ""

    TableList {
        id: list

        anchors.fill: parent
        focus: true
        label: pane.title
        model: pane.content.releases
        delegate: TimelineReleaseLine {
            width: list.width
            listFocused: list.activeFocus
            isCurrent: ListView.isCurrentItem
            onChosen: {
                list.forceActiveFocus();
                list.choose(index);
            }
        }
    }
    EmptyState {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.gridPadding
        visible: list.count === 0
        text: qsTr("No release names this subject.")
        hint: qsTr("Of all that the desk watches, only releases are matched with subjects so far.")
    }
}
