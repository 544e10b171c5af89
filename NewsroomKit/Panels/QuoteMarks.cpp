#include "NewsroomKit/Panels/QuoteMarks.h"

#include <algorithm>
#include <map>

namespace kit {

namespace {

using MarkDays = std::vector<std::chrono::local_days>;

bool isOneADay(const MarkDays& days) { return std::ranges::adjacent_find(days) == days.end(); }

/// Where an event stands; behind the last point when nothing was traded since.
std::size_t placeOfEvent(Instant starts, const StockQuote& quote, const MarkDays& days,
                         const TimeZone& zone) {
    if (isOneADay(days)) {
        const auto from = std::ranges::lower_bound(days, dayOfPrice(starts, zone));
        return static_cast<std::size_t>(from - days.begin());
    }
    const auto from = std::ranges::lower_bound(quote.points, starts, {}, &StockQuote::Point::time);
    return static_cast<std::size_t>(from - quote.points.begin());
}

}  // namespace

std::vector<QuoteMark> quoteMarks(const StockQuote& quote,
                                  std::span<const AppleCalendarEvent> events,
                                  std::span<const MoveRow> moves) {
    if (quote.points.empty() || !std::ranges::is_sorted(quote.points, {}, &StockQuote::Point::time))
        return {};
    const TimeZone zone(exchangeZone(quote.symbol));
    MarkDays days;
    for (const auto& point : quote.points) days.push_back(dayOfPrice(point.time, zone));
    std::map<std::size_t, QuoteMark> marks;
    const auto markAt = [&](std::size_t point) -> QuoteMark& {
        auto& mark = marks[point];
        mark.point = point;
        return mark;
    };
    for (const auto& event : events) {
        const auto place = placeOfEvent(event.starts, quote, days, zone);
        markAt(std::min(place, days.size() - 1)).events.push_back(event);
    }
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const auto day = dayOfPrice(moves[i].move.point, zone);
        const auto after = std::ranges::upper_bound(days, day);
        if (after == days.begin() || *std::prev(after) != day) continue;
        markAt(static_cast<std::size_t>(after - days.begin()) - 1).move = i;
    }
    std::vector<QuoteMark> found;
    for (auto& [point, mark] : marks) {
        std::ranges::stable_sort(mark.events, {}, &AppleCalendarEvent::starts);
        found.push_back(std::move(mark));
    }
    return found;
}

}  // namespace kit
