#pragma once

#include <filesystem>
#include <vector>

#include "NewsroomKit/Filings/FollowedFiling.h"
#include "Tarnwick_Brell/Trackers/TrackedRecords.h"

namespace app {

/// The records of companies and courts that the library holds, of each kind the newest.
struct HeldRecords {
    std::vector<kit::FollowedFiling> filings{};
    std::vector<SeenEntry> entries{};
    std::vector<SeenCase> cases{};
    std::vector<SeenRelease> releases{};
};

/// Reads on a connection of its own: not for the main thread. Throws StoreError.
HeldRecords readRecords(const std::filesystem::path& library);

}  // namespace app
