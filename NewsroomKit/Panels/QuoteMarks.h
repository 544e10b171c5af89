#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "NewsroomKit/Panels/MovesContent.h"
#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit {

/// What is marked at one point of a chart.
struct QuoteMark {
    std::size_t point = 0;                     ///< its place in the quote
    std::vector<AppleCalendarEvent> events{};  ///< the earliest first
    std::optional<std::size_t> move{};         ///< its place in the list of moves

    bool operator==(const QuoteMark&) const = default;
};

/// The marked points of a chart from left to right, each once. An event stands at the first price
/// that could answer it: in a chart of days that of its day, or the next one when there was no
/// trading; in one of hours the first after it began. A move stands at the last price of its day.
/// `events` are those that are on the chart, see eventsOnChart(). Nothing when the points are out
/// of order.
std::vector<QuoteMark> quoteMarks(const StockQuote& quote,
                                  std::span<const AppleCalendarEvent> events,
                                  std::span<const MoveRow> moves);

}  // namespace kit
