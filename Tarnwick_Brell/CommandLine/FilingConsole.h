#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Filings/FollowedFiling.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"

/// Shared by `brell filings` and `brell insiders`.
namespace cli {

struct FilingView {
    std::vector<FetchState> states;
    std::vector<kit::FollowedFiling> filings;
};

/// Fetches the feeds of all companies, or only loads what they have listed. Throws WorkFailed when
/// the SEC may not be asked, or when nothing has ever been fetched.
FilingView readFilings(Session& session, bool isStored);

}  // namespace cli
