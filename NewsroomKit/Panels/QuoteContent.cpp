#include "NewsroomKit/Panels/QuoteContent.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kit {

namespace {

constexpr double kHighestPrice = 1e12;

bool isPrice(double number) { return number > 0 && number < kHighestPrice; }

}  // namespace

std::string marketLabel(std::string_view marketState) {
    const auto known = enumFromRaw<MarketState>(marketState);
    return std::string(known ? label(*known) : marketState);
}

const CachedValue<StockQuote>* newestOf(const std::vector<const CachedValue<StockQuote>*>& quotes) {
    const CachedValue<StockQuote>* newest = nullptr;
    for (const auto* quote : quotes) {
        if (!quote->value) continue;
        if (!newest || quote->fetchedAt > newest->fetchedAt) newest = quote;
    }
    return newest;
}

std::vector<StockQuote::Point> pricedPoints(std::vector<StockQuote::Point> points) {
    std::erase_if(points, [](const auto& point) { return !isPrice(point.close); });
    return points;
}

std::optional<double> referenceOf(const StockQuote& quote) {
    if (quote.range != rawValue(QuoteRange::day)) return std::nullopt;
    const auto close = quote.previousClose();
    return close && isPrice(*close) ? close : std::nullopt;
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
