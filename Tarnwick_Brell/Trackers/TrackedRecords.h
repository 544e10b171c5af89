#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Court/DocketSheet.h"
#include "NewsroomKit/PressWires/PressRelease.h"
#include "Tarnwick_Brell/Storage/Histories/RecordHistory.h"
#include "Tarnwick_Brell/Trackers/FollowedFeeds.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace app {

/// The names of the files of dockets begin with it.
inline constexpr std::string_view kDocketPrefix = "docket/";

/// The docket of a followed case, from CourtListener.
TrackedFile<kit::DocketSheet> docketFile(std::int64_t docket);

/// A court's own feed. Only entries of cases with Apple as a party are recorded: such feeds list
/// hundreds of entries an hour.
TrackedFile<kit::DocketSheet> courtFeedFile(const AddedFeed& feed);

/// CourtListener's search for new cases, with the token of the user's account there. It allows
/// 125 requests a day; this is at most 48.
TrackedFile<kit::DocketSheet> caseSearchFile(const std::string& token);

/// Every file of dockets that is followed; the search where there is a token.
std::vector<TrackedFile<kit::DocketSheet>> docketFiles(const FollowedFeeds& followed);

/// Every feed of press releases that is followed: the wires', of which only the releases of Apple
/// and of the companies on the board of quotes are recorded, and those that the user has added.
/// `serviceAddress` is that of the maker's service, which names these companies.
std::vector<TrackedFile<kit::PressSheet>> pressFiles(const FollowedFeeds& followed,
                                                     const std::string& serviceAddress);

/// A docket entry as the library holds it.
struct SeenEntry {
    kit::DocketEntry entry{};
    std::string feed{};
    kit::Instant firstSeen{};
};

/// A case as the library holds it.
struct SeenCase {
    kit::CourtCase found{};
    kit::Instant firstSeen{};
};

/// A press release as the library holds it.
struct SeenRelease {
    kit::PressRelease release{};
    std::string feed{};
    kit::Instant firstSeen{};
};

/// Those that can't be parsed, because another version wrote them, are left out.
std::vector<SeenEntry> seenEntries(const std::vector<HistoricRecord>& records);
std::vector<SeenCase> seenCases(const std::vector<HistoricRecord>& records);
std::vector<SeenRelease> seenReleases(const std::vector<HistoricRecord>& records);

}  // namespace app
