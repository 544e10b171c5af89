pragma ComponentBehavior: Bound
import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// What the desk saw change about a timeline's subject: releases, and what the log has of it.
PagePane {
    id: pane

    required property TimelinePageModel content

    title: qsTr("Changes of the same subject")
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
        text: qsTr("Nothing in the log names this subject.")
        hint: qsTr("Releases and what else the desk logs stand here when their titles name it.")
    }
}
