#include "NewsroomKit/Panels/PercentSeries.h"

#include <algorithm>
#include <chrono>

#include "NewsroomKit/Panels/QuoteContent.h"
#include "NewsroomKit/Trackers/Market/QuotePlaces.h"

namespace kit {

namespace {

using QuotePoint = StockQuote::Point;

StockQuote withPricesOnly(StockQuote quote) {
    quote.points = pricedPoints(std::move(quote.points));
    std::ranges::stable_sort(quote.points, {}, &QuotePoint::time);
    return quote;
}

/// Where a time lies among the quote's points.
std::optional<double> placeOfTime(Instant time, const std::vector<QuotePoint>& points,
                                  const std::vector<double>& places) {
    const auto after = std::ranges::lower_bound(points, time, {}, &QuotePoint::time);
    // Today's price comes after the time of the last point, which is the beginning of the day.
    if (after == points.end()) return places.back();
    const auto right = static_cast<std::size_t>(after - points.begin());
    if (after->time == time) return places[right];
    if (right == 0) return std::nullopt;
    const std::chrono::duration<double> whole = points[right].time - points[right - 1].time;
    const std::chrono::duration<double> passed = time - points[right - 1].time;
    return places[right - 1] + (places[right] - places[right - 1]) * (passed / whole);
}

}  // namespace

PercentSeries percentSeries(const StockQuote& compared, const StockQuote& quote) {
    PercentSeries series{.symbol = compared.symbol};
    const auto axis = withPricesOnly(quote);
    const auto own = withPricesOnly(compared);
    if (axis.points.empty() || own.points.empty()) return series;
    const auto places = pointPlaces(axis);
    const auto& start = axis.points.front().time;
    // The last price that is known when the range begins, else the first one.
    auto base = own.points.front().close;
    for (const auto& point : own.points) {
        if (point.time <= start) base = point.close;
    }
    for (const auto& point : own.points) {
        const auto place = placeOfTime(point.time, axis.points, places);
        if (place) series.points.push_back({*place, (point.close / base - 1) * 100});
    }
    // Several prices after the last time share its place: the last one is the current one.
    while (series.points.size() > 1 &&
           series.points[series.points.size() - 2].place == series.points.back().place)
        series.points.erase(series.points.end() - 2);
    return series;
}

}  // namespace kit
