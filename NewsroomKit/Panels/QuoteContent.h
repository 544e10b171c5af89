#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Trackers/CachedValue.h"
#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Market/PriceChange.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit {

enum class MarketState { open, closed, beforeHours, afterHours };

template <>
inline constexpr std::array<EnumRow<MarketState>, 4> enumTable<MarketState>{{
    {MarketState::open, "OPEN", "Open"},
    {MarketState::closed, "CLOSED", "Closed"},
    {MarketState::beforeHours, "PRE", "Before hours"},
    {MarketState::afterHours, "POST", "After hours"},
}};

/// The state of a market in words: the table's, or the service's own for one that is not in it.
std::string marketLabel(std::string_view marketState);

/// What is said of a share beside its chart.
struct QuoteContent {
    double price = 0;
    std::string currency{};
    std::optional<PriceChange> change{};  ///< since the previous close
    std::string market{};                 ///< "Open"
    bool isOpen = false;
    std::optional<Instant> pricedAt{};  ///< by the service, else when the answer came
    bool isOld = false;                 ///< the service itself has only old figures

    bool operator==(const QuoteContent&) const = default;
};

/// The one of a share's quotes over several ranges that came last; null when none has come. The
/// price is the same in all ranges.
const CachedValue<StockQuote>* newestOf(const std::vector<const CachedValue<StockQuote>*>& quotes);

QuoteContent quoteContent(const StockQuote& quote, std::optional<Instant> fetchedAt);

/// The points that a chart can show: services send gaps as zeros, and numbers that are no prices.
std::vector<StockQuote::Point> pricedPoints(std::vector<StockQuote::Point> points);

/// The previous close as a line across the chart. Only the chart of one day has one: on longer ones
/// it would be one of the points.
std::optional<double> referenceOf(const StockQuote& quote);

/// The events that stand on a chart of these points: past ones from the first point to the last
/// one, or later on the last one's day, because a day's price is stamped before the day is over.
/// `daysBetween` counts the days of the reader's calendar. Empty when the points are out of order.
std::vector<AppleCalendarEvent> eventsOnChart(
    const std::vector<StockQuote::Point>& points, const std::vector<AppleCalendarEvent>& marked,
    Instant now, const std::function<int(Instant, Instant)>& daysBetween);

}  // namespace kit
