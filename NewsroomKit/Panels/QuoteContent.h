#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Records/EnumTable.h"
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

/// A quote that was fetched for a range, if any.
struct QuoteAnswer {
    const StockQuote* quote = nullptr;
    std::optional<Instant> fetchedAt{};
};

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

/// The place of the answer that came last and has a quote. A share's price is the same in all of
/// its ranges.
std::optional<std::size_t> newestOf(std::span<const QuoteAnswer> answers);

QuoteContent quoteContent(const StockQuote& quote, std::optional<Instant> fetchedAt);

/// The events that stand on a chart of these points: past ones from the first point to the last
/// one, or later on the last one's day, because a day's price is stamped before the day is over.
/// `daysBetween` counts the days of the reader's calendar. Empty when the points are out of order.
std::vector<AppleCalendarEvent> eventsOnChart(
    const std::vector<StockQuote::Point>& points, const std::vector<AppleCalendarEvent>& marked,
    Instant now, const std::function<int(Instant, Instant)>& daysBetween);

}  // namespace kit
