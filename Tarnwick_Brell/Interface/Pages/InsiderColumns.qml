import QtQuick
import TarnwickBrell.Controls

/// Where the columns of the trades of insiders are. As space shrinks, the average goes first, then
/// the share of the holding.
QtObject {
    required property int width

    readonly property int columnsLeast: Theme.rowText + PageSizes.insiderPersonLeast + PageSizes.insiderDid + PageSizes.insiderShares + PageSizes.insiderValue + PageSizes.insiderPlan + PageSizes.insiderDay + Theme.rowEnd
    readonly property bool hasHolding: width >= columnsLeast + PageSizes.insiderHolding
    readonly property bool hasAverage: width >= columnsLeast + PageSizes.insiderHolding + PageSizes.insiderAverage
    readonly property int dayX: width - Theme.rowEnd - PageSizes.insiderDay
    readonly property int planX: dayX - PageSizes.insiderPlan
    readonly property int holdingX: planX - Theme.space4 - (hasHolding ? PageSizes.insiderHolding : 0)
    readonly property int valueX: holdingX - PageSizes.insiderValue
    readonly property int averageX: valueX - (hasAverage ? PageSizes.insiderAverage : 0)
    readonly property int sharesX: averageX - PageSizes.insiderShares
    readonly property int didX: sharesX - PageSizes.insiderDid
    readonly property int personX: Theme.rowText
}
