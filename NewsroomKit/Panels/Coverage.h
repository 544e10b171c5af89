#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// How an outlet covers the panel's subject.
struct CoverageRow {
    std::string outlet{};
    std::size_t stories = 0;
    Instant first{};
    Instant last{};
    std::size_t timesFirst = 0;  ///< news that others told too, and it told first

    bool operator==(const CoverageRow&) const = default;
};

inline constexpr std::size_t kMostCoverageRows = 50;
inline constexpr std::chrono::days kCoverageSpan{30};

/// Of the stories of that span. The outlet with the most stories comes first, then the one
/// that was first more often, then by name.
std::vector<CoverageRow> coverage(const PanelNews& news);

}  // namespace kit
