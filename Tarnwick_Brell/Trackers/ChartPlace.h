#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "Tarnwick_Brell/Storage/Histories/ChartHistory.h"

namespace app {

/// A place of a chart and how it has moved since the last day on which the chart was seen.
struct ChartPlace {
    kit::ChartEntry entry{};
    std::optional<std::int64_t> rankBefore{};
    bool isNew = false;  ///< it was not in the chart on that day

    /// By how many places it went up; nothing when that is not known.
    std::optional<std::int64_t> rise() const {
        return rankBefore ? std::optional(*rankBefore - entry.rank) : std::nullopt;
    }

    bool operator==(const ChartPlace&) const = default;
};

std::vector<ChartPlace> chartPlaces(const std::vector<kit::ChartEntry>& entries,
                                    const std::optional<ChartDay>& dayBefore);

}  // namespace app
