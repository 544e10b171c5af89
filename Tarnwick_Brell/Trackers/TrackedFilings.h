#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Filings/FollowedFiling.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace app {

/// What is said until the user has set an address.
inline constexpr std::string_view kNoContactAddress =
    "The SEC asks every program to name a mail address of its user. Filings are followed once the "
    "setting contactAddress has yours.";

/// The feed of each company that files. Nothing is asked without the user's mail address.
std::vector<TrackedFile<std::vector<kit::Filing>>> filingFiles(const std::string& contact);

/// The list of one of the companies, which is read once a day. Its host is not that of the feeds.
std::string filingListAddress();

/// The page that lists a filing's documents, which become part of what is known of it.
TrackedFile<std::vector<kit::FilingDocument>> filingPageFile(const kit::FollowedFiling& followed,
                                                             const std::string& contact);

/// The text of one of its documents.
TrackedFile<kit::FilingText> filingTextFile(const kit::FollowedFiling& followed,
                                            const kit::FilingDocument& document,
                                            const std::string& contact);

}  // namespace app
