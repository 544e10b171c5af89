#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelCondition.h"
#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"

namespace kit {

/// The last seen ranks of a chart on one UTC day, by app id.
struct ChartDay {
    Instant day{};
    std::map<std::string, std::int64_t> ranks{};
};

/// An App Store chart, and how its apps have moved since the last day on which it was seen.
struct ChartContent {
    struct Row {
        ChartEntry entry{};
        std::optional<std::int64_t> rankBefore{};
        bool isNew = false;     ///< it was not in the chart on that day
        bool isApples = false;  ///< one of Apple's own apps

        /// By how many ranks it rose; nothing when that is not known.
        std::optional<std::int64_t> rise() const {
            return rankBefore ? std::optional(*rankBefore - entry.rank) : std::nullopt;
        }
    };

    PanelCondition condition{};
    std::vector<Row> rows{};
};

ChartContent chartContent(const CachedValue<std::vector<ChartEntry>>& chart,
                          const std::optional<ChartDay>& dayBefore);

}  // namespace kit
