#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit {

/// A symbol beside another one, in per cent from the beginning of the range.
struct PercentSeries {
    struct Point {
        double place = 0;    ///< from 0 at the left of the other one's chart to 1 at the right
        double percent = 0;  ///< from the symbol's own first price of the range

        bool operator==(const Point&) const = default;
    };

    std::string symbol{};
    std::vector<Point> points{};  ///< from left to right

    /// Over the whole range; nothing without points.
    std::optional<double> change() const {
        return points.empty() ? std::nullopt : std::optional(points.back().percent);
    }
};

/// `compared` on the chart of `quote`. Exchanges trade at different hours: a price stands where its
/// time lies between the times of the quote, and prices of before its first time only tell where
/// `compared` begins. Points without a price are dropped.
PercentSeries percentSeries(const StockQuote& compared, const StockQuote& quote);

}  // namespace kit
