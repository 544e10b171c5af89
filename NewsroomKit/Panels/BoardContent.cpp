#include "NewsroomKit/Panels/BoardContent.h"

#include <algorithm>
#include <cmath>

#include "NewsroomKit/Panels/QuoteContent.h"

namespace kit {

namespace {

/// The service's own figures count where it gives no previous close.
std::optional<PriceChange> changeOf(const BoardQuote& quote) {
    const auto change = PriceChange::of(quote.price, quote.previousClose);
    if (change || !quote.change || !quote.changePercent) return change;
    if (!std::isfinite(*quote.change) || !std::isfinite(*quote.changePercent)) return std::nullopt;
    return PriceChange{.amount = *quote.change, .percent = *quote.changePercent};
}

BoardRow rowOf(const BoardQuote& quote) {
    return {.quote = quote, .change = changeOf(quote), .market = marketLabel(quote.marketState)};
}

BoardGroup groupOf(const StockQuote& share) {
    return {.name = "Apple",
            .rows = {rowOf({.symbol = share.symbol,
                            .name = share.name,
                            .currency = share.currency,
                            .price = share.price,
                            .previousClose = share.previousClose(),
                            .marketState = share.marketState,
                            .stale = share.stale,
                            .points = share.points})}};
}

}  // namespace

std::vector<BoardGroup> boardGroups(const std::vector<BoardQuote>& board, const StockQuote* share) {
    std::vector<BoardGroup> groups;
    for (const auto& quote : board) {
        auto group = std::ranges::find(groups, quote.group, &BoardGroup::name);
        if (group == groups.end()) group = groups.insert(group, {.name = quote.group});
        group->rows.push_back(rowOf(quote));
    }
    if (share && !groups.empty()) groups.insert(groups.begin(), groupOf(*share));
    return groups;
}

}  // namespace kit
