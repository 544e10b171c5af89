#include "Tarnwick_Brell/Models/Panels/SuppliersPanel.h"

#include <algorithm>

#include "Tarnwick_Brell/Models/Charts/QuoteCurve.h"
#include "Tarnwick_Brell/Text/PriceText.h"
#include "Tarnwick_Brell/Text/ShownText.h"

namespace desk {

namespace {

using newsroom::BoardQuote;

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
    if (const auto percent = percentText(quote.price, quote.previousClose)) {
        row.change = *percent;
        row.move = moveOf(quote.price, *quote.previousClose);
    }
    row.spokenText =
        SuppliersPanel::tr("%1, %2 %3, %4")
            .arg(row.name, row.price, row.currency,
                 row.change.isEmpty() ? SuppliersPanel::tr("change not known") : row.change);
    return row;
}

BoardQuote asBoardQuote(const newsroom::StockQuote& share) {
    return {.symbol = share.symbol,
            .name = share.name,
            .group = SuppliersPanel::tr("Apple").toStdString(),
            .currency = share.currency,
            .price = share.price,
            .previousClose = share.previousClose(),
            .points = share.points};
}

}  // namespace

SuppliersPanel::SuppliersPanel(const PanelStores& stores, const newsroom::PanelSpec& panel)
    : PanelContent(stores, panel) {
    connect(&trackers(), &TrackerStore::boardChanged, this, &SuppliersPanel::look);
    connect(&trackers(), &TrackerStore::quotesChanged, this, &SuppliersPanel::look);
    look();
}

void SuppliersPanel::look() {
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

}  // namespace desk
