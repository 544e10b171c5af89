#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/ChartContent.h"

namespace kit {

/// By the developer's name, which is "Apple" in all countries.
bool isApplesApp(const ChartEntry& entry);

/// The ranks of an app on successive UTC days, the last of which is that of the chart; nothing for
/// a day on which it was not in the chart, or on which nobody looked.
using RankDays = std::vector<std::optional<std::int64_t>>;

/// Of an app on the `count` days up to the day of `last`. `days`: in any order.
RankDays rankDays(const std::vector<ChartDay>& days, const std::string& app, Instant last,
                  std::size_t count);

/// A chart of the App Store as it is now and as it was. `days`: the earliest first.
struct ChartPast {
    AppStoreCharts::Kind kind{};
    const CachedValue<std::vector<ChartEntry>>& chart;
    const std::vector<ChartDay>& days;
};

/// What is known of one app of a chart.
struct AppHistory {
    /// A day on which its rank was another one than on the day before that was seen.
    struct Move {
        Instant day{};
        std::optional<std::int64_t> before{};  ///< nothing: it was not in the chart
        std::optional<std::int64_t> after{};   ///< nothing: it left the chart
        bool entersTopTen = false;

        bool operator==(const Move&) const = default;
    };
    struct OtherApp {
        AppStoreCharts::Kind chart{};
        ChartEntry entry{};

        bool operator==(const OtherApp&) const = default;
    };

    ChartEntry entry{};
    AppStoreCharts::Kind chart{};
    bool isApples = false;
    std::optional<Instant> firstDay{};  ///< the first one on which the chart was seen
    std::optional<std::int64_t> bestRank{};
    std::optional<Instant> bestDay{};  ///< the last one with that rank
    std::vector<Move> moves{};         ///< the notable ones, the latest first
    std::vector<OtherApp> others{};    ///< of the same developer, in both charts
};

/// Nothing when the app is in none of the charts.
std::optional<AppHistory> appHistory(const std::vector<ChartPast>& charts,
                                     AppStoreCharts::Kind chart, const std::string& app);

}  // namespace kit
