#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Filings/FollowedFiling.h"
#include "Tarnwick_Brell/Storage/Histories/RecordHistory.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace app {

/// The names of the files of filings begin with it.
inline constexpr std::string_view kFilingPrefix = "filings/";

/// What is said until the user has set an address.
inline constexpr std::string_view kNoContactAddress =
    "The SEC asks every program to name a mail address of its user. Filings are followed once the "
    "setting contactAddress has yours.";

/// The feed of each company that files. Nothing is asked without the user's mail address.
std::vector<TrackedFile<std::vector<kit::Filing>>> filingFiles(const std::string& contact);

/// Filings as the library holds them. Those that can't be parsed, because another version wrote
/// them, are left out.
std::vector<kit::FollowedFiling> followedFilings(const std::vector<HistoricRecord>& records);

}  // namespace app
