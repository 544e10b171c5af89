#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Filings/FollowedFiling.h"
#include "NewsroomKit/PressWires/PressRelease.h"

namespace kit {

/// A press release with what the desk knows of it.
struct PressItem {
    PressRelease release{};
    std::string feed{};  ///< that listed it
    Instant firstSeen{};
};

struct PressRow {
    PressItem item{};
    std::string company{};           ///< else its symbol; empty where the feed names neither
    std::optional<Filing> filing{};  ///< with the same text
};

struct PressFilter {
    std::string company{};  ///< its name as in PressRow; empty for all
    std::optional<Instant> since{};
};

/// The last published first.
std::vector<PressRow> pressRows(std::vector<PressItem> items,
                                const std::vector<FollowedFiling>& filings,
                                const PressFilter& filter);

}  // namespace kit
