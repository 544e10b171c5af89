#include "Tarnwick_Brell/Models/Panels/SuppliersPanelModel.h"

#include "NewsroomKit/Panels/BoardContent.h"
#include "Tarnwick_Brell/Models/Charts/QuoteChartData.h"
#include "Tarnwick_Brell/Models/Panels/NewestShare.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

constexpr int kLongestSymbol = 12;
constexpr int kLongestShareName = 60;

SupplierRow rowOf(const kit::BoardRow& share) {
    const auto& quote = share.quote;
    SupplierRow row{.symbol = titleText(quote.symbol, kLongestSymbol),
                    .name = titleText(quote.name, kLongestShareName),
                    .relation = titleText(quote.relation, kLongestShareName),
                    .price = priceText(quote.price),
                    .currency = titleText(quote.currency, kLongestSymbol),
                    .move = moveOf(share.change),
                    .line = sparkline(quote.points)};
    if (share.change) row.change = percentText(share.change->percent);
    row.spokenText =
        SuppliersPanelModel::tr("%1, %2 %3, %4")
            .arg(row.name, row.price, row.currency,
                 row.change.isEmpty() ? SuppliersPanelModel::tr("change not known") : row.change);
    return row;
}

}  // namespace

SuppliersPanelModel::SuppliersPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel) {
    connect(&trackers(), &TrackerStore::boardChanged, this, &SuppliersPanelModel::refresh);
    connect(&trackers(), &TrackerStore::quotesChanged, this, &SuppliersPanelModel::refresh);
    refresh();
}

void SuppliersPanelModel::refresh() {
    const auto& reading = trackers().board();
    auto condition = conditionOf(reading);
    std::vector<SupplierRow> rows;
    if (reading.value) {
        const auto* share = newestShare(trackers());
        for (const auto& group :
             kit::boardGroups(*reading.value, share ? &*share->value : nullptr)) {
            for (const auto& quote : group.rows) {
                rows.push_back(rowOf(quote));
                if (&quote == &group.rows.front())
                    rows.back().heading = titleText(group.name, kLongestShareName);
            }
        }
    }
    if (condition.state == Ready && rows.empty()) {
        condition.state = Empty;
        condition.message = noRowText(kit::PanelKind::suppliers);
    }
    rows_.setRows(std::move(rows));
    setCondition(std::move(condition));
}

}  // namespace app
