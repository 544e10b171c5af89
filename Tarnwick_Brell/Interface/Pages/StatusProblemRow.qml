import QtQuick
import TarnwickBrell.Controls

/// A problem of a service as a row of the page.
Item {
    id: line

    required property StatusRow row

    implicitHeight: card.implicitHeight + Theme.space2

    StatusProblem {
        id: card

        x: Theme.gridPadding
        width: parent.width - 2 * x
        service: line.row.title
        level: line.row.level
        levelLabel: line.row.levelLabel
        message: line.row.message
        facts: line.row.facts
        duration: line.row.detail
    }
}
