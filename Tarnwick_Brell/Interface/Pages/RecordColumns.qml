import QtQuick
import TarnwickBrell.Controls

/// Where the columns of filings and press releases are. As space shrinks, the company goes first.
QtObject {
    required property int width

    readonly property int badgeX: Theme.rowText
    readonly property int textX: badgeX + PageSizes.recordBadge
    readonly property bool hasCompany: width >= Theme.wireLeast
    readonly property int whenX: width - Theme.rowEnd - PageSizes.recordWhen
    readonly property int companyX: whenX - (hasCompany ? PageSizes.recordCompany : 0)
    readonly property int textWidth: companyX - textX - Theme.space3
}
