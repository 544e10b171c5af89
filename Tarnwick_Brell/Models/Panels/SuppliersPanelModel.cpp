#include "Tarnwick_Brell/Models/Panels/SuppliersPanelModel.h"

#include <algorithm>

#include "Tarnwick_Brell/Models/Charts/QuoteChartData.h"
#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using kit::BoardQuote;

constexpr int kLongestSymbol = 12;
constexpr int kLongestName = 60;

SupplierRow rowOf(const BoardQuote& quote) {
    SupplierRow row{.group = titleText(quote.group, kLongestName),
                    .symbol = titleText(quote.symbol, kLongestSymbol),
                    .name = titleText(quote.name, kLongestName),
                    .relation = titleText(quote.relation, kLongestName),
                    .price = priceText(quote.price),
                    .currency = titleText(quote.currency, kLongestSymbol),
                    .line = sparkline(quote.points)};
    const auto change = kit::PriceChange::of(quote.price, quote.previousClose);
    if (change) row.change = percentText(change->percent);
    row.move = moveOf(change);
    row.spokenText =
        SuppliersPanelModel::tr("%1, %2 %3, %4")
            .arg(row.name, row.price, row.currency,
                 row.change.isEmpty() ? SuppliersPanelModel::tr("change not known") : row.change);
    return row;
}

BoardQuote asBoardQuote(const kit::StockQuote& share) {
    return {.symbol = share.symbol,
            .name = share.name,
            .group = SuppliersPanelModel::tr("Apple").toStdString(),
            .currency = share.currency,
            .price = share.price,
            .previousClose = share.previousClose(),
            .points = share.points};
}

}  // namespace

SuppliersPanelModel::SuppliersPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel) {
    connect(&trackers(), &TrackerStore::boardChanged, this, &SuppliersPanelModel::look);
    connect(&trackers(), &TrackerStore::quotesChanged, this, &SuppliersPanelModel::look);
    look();
}

void SuppliersPanelModel::look() {
    const auto& reading = trackers().board();
    auto condition = conditionOf(reading);
    std::vector<SupplierRow> rows;
    if (reading.value) {
        for (const auto& quote : *reading.value) {
            auto row = rowOf(quote);
            // The board's order is by importance; a group stands where its first share does.
            const auto sameGroup =
                std::ranges::find(rows.rbegin(), rows.rend(), row.group, &SupplierRow::group);
            rows.insert(sameGroup == rows.rend() ? rows.end() : sameGroup.base(), std::move(row));
        }
        const auto share = trackers().quote().value;
        if (share && !rows.empty()) rows.insert(rows.begin(), rowOf(asBoardQuote(*share)));
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i == 0 || rows[i].group != rows[i - 1].group) rows[i].heading = rows[i].group;
    }
    if (condition.state == Ready && rows.empty()) {
        condition.state = Empty;
        condition.message = tr("The board of suppliers is empty.");
    }
    rows_.setRows(std::move(rows));
    become(std::move(condition));
}

}  // namespace app
