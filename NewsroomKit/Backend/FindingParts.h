#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Backend/BackendFinding.h"

/// What the titles of findings are put together from.
namespace kit {

using WatchedRecords = std::vector<WatchedRecord>;

/// Of a finding so many entries are kept.
inline constexpr std::size_t kMostFindingEntries = 500;
/// The field of the devices that a build is for.
inline constexpr std::string_view kDevicesOfBuild = "SupportedDevices";

/// How the entries of a source are called.
struct EntryNoun {
    std::string_view one;
    std::string_view many;
};

EntryNoun nounOf(WatchedSource source);

/// Short, on one line.
std::string findingName(std::string_view text);

/// "1 build", "3 builds".
std::string countedEntries(std::size_t count, std::string_view one, std::string_view many);

/// Of entries that came or are gone.
BackendFinding findingOfEntries(const WatchedFile& file, FindingKind kind, std::string title,
                                WatchedRecords records);

/// Of Apple's list of versions for managed devices: one a build. Builds that are public are left
/// out, since the update catalogue has them.
std::vector<BackendFinding> managedFindings(const WatchedFile& file, const RecordDiff& diff,
                                            const WatchedRecords& before,
                                            const WatchedRecords& after);

}  // namespace kit
