#include "NewsroomKit/Panels/QuoteContent.h"

#include <algorithm>
#include <iterator>

namespace kit {

std::string marketLabel(std::string_view marketState) {
    const auto known = enumFromRaw<MarketState>(marketState);
    return std::string(known ? label(*known) : marketState);
}

std::optional<std::size_t> newestOf(std::span<const QuoteAnswer> answers) {
    std::optional<std::size_t> newest;
    for (std::size_t i = 0; i < answers.size(); ++i) {
        if (!answers[i].quote) continue;
        if (!newest || answers[i].fetchedAt > answers[*newest].fetchedAt) newest = i;
    }
    return newest;
}

QuoteContent quoteContent(const StockQuote& quote, std::optional<Instant> fetchedAt) {
    return {.price = quote.price,
            .currency = quote.currency,
            .change = PriceChange::of(quote.price, quote.previousClose()),
            .market = marketLabel(quote.marketState),
            .isOpen = quote.isOpen(),
            .pricedAt = quote.asOf ? quote.asOf : fetchedAt,
            .isOld = quote.stale.value_or(false)};
}

std::vector<AppleCalendarEvent> eventsOnChart(
    const std::vector<StockQuote::Point>& points, const std::vector<AppleCalendarEvent>& marked,
    Instant now, const std::function<int(Instant, Instant)>& daysBetween) {
    if (points.empty() || !std::ranges::is_sorted(points, {}, &StockQuote::Point::time)) return {};
    const auto first = points.front().time, last = points.back().time;
    std::vector<AppleCalendarEvent> events;
    std::ranges::copy_if(marked, std::back_inserter(events), [&](const auto& event) {
        if (event.starts < first || event.starts > now) return false;
        return event.starts < last || daysBetween(last, event.starts) == 0;
    });
    return events;
}

}  // namespace kit
