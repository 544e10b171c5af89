#include "NewsroomKit/Trackers/Market/QuotePlaces.h"

#include <algorithm>
#include <chrono>

namespace kit {

bool isWithinSession(const StockQuote& quote) {
    const auto& points = quote.points;
    return quote.range == rawValue(QuoteRange::day) && quote.sessionOpen && quote.sessionClose &&
           *quote.sessionOpen < *quote.sessionClose &&
           std::ranges::all_of(
               points,
               [&](const StockQuote::Point& point) {
                   return point.time >= *quote.sessionOpen && point.time <= *quote.sessionClose;
               }) &&
           std::ranges::is_sorted(points, {}, &StockQuote::Point::time);
}

std::vector<double> pointPlaces(const StockQuote& quote) {
    const auto& points = quote.points;
    std::vector<double> places(points.size());
    const bool standsInSession = isWithinSession(quote);
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (standsInSession) {
            const std::chrono::duration<double> whole = *quote.sessionClose - *quote.sessionOpen;
            places[i] = (points[i].time - *quote.sessionOpen) / whole;
        } else if (points.size() == 1) {
            places[i] = 0.5;
        } else {
            places[i] = static_cast<double>(i) / static_cast<double>(points.size() - 1);
        }
    }
    return places;
}

}  // namespace kit
