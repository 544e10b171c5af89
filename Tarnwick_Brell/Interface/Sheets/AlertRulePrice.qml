import QtQuick
import TarnwickBrell.Controls
import TarnwickBrell.Models

/// The condition of a rule about a price.
Column {
    id: price

    required property AlertRuleSheetModel content

    /// Conditions that fit beside each other.
    readonly property int firstRow: 4

    spacing: Theme.space2

    FieldLabel {
        text: qsTr("Symbol")
    }
    DeskField {
        width: Theme.settingControl
        outlined: true
        label: qsTr("Symbol")
        text: price.content.symbol
        onEditingFinished: price.content.symbol = text
    }
    FieldLabel {
        text: qsTr("What it does")
    }
    SegmentedControl {
        raised: true
        label: qsTr("What it does")
        model: price.content.conditions.slice(0, price.firstRow)
        currentIndex: price.content.condition < price.firstRow ? price.content.condition : -1
        onActivated: index => price.content.condition = index
    }
    SegmentedControl {
        raised: true
        label: qsTr("What it does")
        model: price.content.conditions.slice(price.firstRow)
        currentIndex: price.content.condition - price.firstRow
        onActivated: index => price.content.condition = price.firstRow + index
    }
    FieldLabel {
        visible: price.content.figureLabel
        text: price.content.figureLabel
    }
    DeskField {
        visible: price.content.figureLabel
        width: Theme.settingControl
        outlined: true
        label: price.content.figureLabel
        text: price.content.figure
        onTextEdited: price.content.figure = text
    }
    FieldLabel {
        visible: price.content.isWithin
        text: qsTr("Within minutes")
    }
    DeskField {
        visible: price.content.isWithin
        width: Theme.settingNumber
        outlined: true
        label: qsTr("Within minutes")
        text: price.content.within
        onTextEdited: price.content.within = text
    }
}
