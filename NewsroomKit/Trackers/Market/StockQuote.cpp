#include "NewsroomKit/Trackers/Market/StockQuote.h"

#include <algorithm>
#include <cmath>
#include <ranges>

namespace kit {

namespace {

bool hasPointsWithinDays(std::string_view range) {
    return range == rawValue(QuoteRange::day) || range == rawValue(QuoteRange::week);
}

}  // namespace

std::optional<double> StockQuote::previousClose() const {
    // 1. The service knows best, but gives zero for symbols it knows nothing about.
    if (serverPreviousClose && *serverPreviousClose > 0) return serverPreviousClose;
    // 2. One point is the current price.
    if (points.size() < 2) return std::nullopt;
    // 3. Within days: where the last session before this one ended.
    if (hasPointsWithinDays(range)) {
        if (!sessionOpen) return std::nullopt;
        const auto newestFirst = std::views::reverse(points);
        const auto before = std::ranges::find_if(
            newestFirst, [&](const Point& point) { return point.time < *sessionOpen; });
        return before == newestFirst.end() ? std::nullopt : std::optional(before->close);
    }
    // 4. Days: the newest point is today's, unless today has not traded yet.
    const bool isYesterdays = sessionOpen && points.back().time < *sessionOpen;
    return points[points.size() - (isYesterdays ? 1 : 2)].close;
}

bool StockQuote::hasFinitePrices() const {
    const auto isFinite = [](const std::optional<double>& figure) {
        return !figure || std::isfinite(*figure);
    };
    return std::isfinite(price) && isFinite(serverPreviousClose) && isFinite(dayHigh) &&
           isFinite(dayLow) && isFinite(yearHigh) && isFinite(yearLow);
}

}  // namespace kit
