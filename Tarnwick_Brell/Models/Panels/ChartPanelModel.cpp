#include "Tarnwick_Brell/Models/Panels/ChartPanelModel.h"

#include <cstdlib>

#include <QLocale>

#include "NewsroomKit/Panels/ChartContent.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

constexpr int kLongestAppName = 80;

QString moveText(const kit::ChartContent::Row& place) {
    const auto rise = place.rise();
    if (!rise) return place.isNew ? ChartPanelModel::tr("new") : QString();
    if (*rise == 0) return ChartPanelModel::tr("unchanged");
    const auto places = static_cast<int>(std::abs(*rise));
    return *rise > 0 ? ChartPanelModel::tr("up %n places", nullptr, places)
                     : ChartPanelModel::tr("down %n places", nullptr, places);
}

ChartRow rowOf(const kit::ChartContent::Row& place) {
    ChartRow row{.rank = QLocale().toString(static_cast<qlonglong>(place.entry.rank)),
                 .name = titleText(place.entry.name, kLongestAppName),
                 .developer = titleText(place.entry.developer, kLongestAppName),
                 .isNew = place.isNew,
                 .link = place.entry.url ? openableLink(*place.entry.url) : QString()};
    if (const auto rise = place.rise()) {
        row.move = *rise > 0 ? PriceMove::Up : *rise < 0 ? PriceMove::Down : PriceMove::Flat;
        const auto places = QLocale().toString(static_cast<qlonglong>(std::abs(*rise)));
        if (*rise != 0) row.change = (*rise > 0 ? u'+' : u'\u2212') + places;
    }
    row.spokenText = ChartPanelModel::tr("%1, %2, %3").arg(row.rank, row.name, row.developer);
    if (const auto move = moveText(place); !move.isEmpty())
        row.spokenText += QStringLiteral(", ") + move;
    return row;
}

}  // namespace

ChartPanelModel::ChartPanelModel(const PanelStores& stores, kit::AppStoreCharts::Kind chart)
    : PanelModel(stores), chart_(chart) {
    connect(&trackers(), &TrackerStore::chartsChanged, this, &ChartPanelModel::update);
    update();
}

QString ChartPanelModel::title() const { return plainText(label(chart_)); }

void ChartPanelModel::update() {
    const auto content =
        kit::chartContent(trackers().chart(chart_), trackers().chartDayBefore(chart_));
    std::vector<ChartRow> rows;
    for (const auto& row : content.rows) rows.push_back(rowOf(row));
    rows_.setRows(std::move(rows));
    setCondition(conditionOf(content.condition, tr("The chart is empty.")));
}

}  // namespace app
