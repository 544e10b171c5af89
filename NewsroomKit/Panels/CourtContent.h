#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Court/DocketSheet.h"

namespace kit {

/// A docket entry with what the desk knows of it.
struct CourtItem {
    DocketEntry entry{};
    Instant firstSeen{};
    std::string note{};  ///< why its case is followed; may be empty
    std::string feed{};  ///< that listed it
};

struct CourtFilter {
    bool includesRoutine = false;
    std::optional<Instant> since{};  ///< dated or first seen at or after
};

struct CourtContent {
    std::vector<CourtItem> items{};  ///< the last filed first, by their numbers on one day
    std::size_t routine = 0;         ///< entries that the filter leaves out as routine
};

CourtContent courtContent(std::vector<CourtItem> items, const CourtFilter& filter);

/// A feed of entries that the user follows: that of a case, or a court's own.
struct FollowedDocket {
    std::int64_t docket = 0;  ///< CourtListener's number; 0 for a court's own feed
    std::string feed{};
    std::string name{};  ///< as the user calls it; may be empty
    std::string note{};  ///< why it is followed; may be empty
};

struct CourtCaseRow {
    FollowedDocket followed{};
    std::string name{};                ///< of the case; empty until an entry of it has been seen
    std::optional<CourtCase> found{};  ///< where a search has described it
    std::string court{};
    std::string number{};
    std::optional<Instant> latest{};  ///< when its last entry was filed, else first seen
    bool dayOnly = false;             ///< `latest` has no time of day
    std::size_t entries = 0;
    std::size_t matters = 0;
    std::size_t unseen = 0;  ///< entries that matter, first seen after the last look
};

/// The one with the last entry first. `lookedAt`: nothing is unseen without it.
std::vector<CourtCaseRow> courtCaseRows(std::span<const FollowedDocket> followed,
                                        std::span<const CourtItem> items,
                                        std::span<const CourtCase> cases,
                                        std::optional<Instant> lookedAt);

/// The numbers that are missing between the first and the last of the entries, as "43, 45-47".
/// Courts number entries that their feeds leave out.
std::string missingNumbers(const std::vector<DocketEntry>& entries);

}  // namespace kit
