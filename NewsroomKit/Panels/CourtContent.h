#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Court/DocketSheet.h"

namespace kit {

/// A docket entry with what the desk knows of it.
struct CourtItem {
    DocketEntry entry{};
    Instant firstSeen{};
    std::string note{};  ///< why its case is followed; may be empty
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

/// The numbers that are missing between the first and the last of the entries, as "43, 45-47".
/// Courts number entries that their feeds leave out.
std::string missingNumbers(const std::vector<DocketEntry>& entries);

}  // namespace kit
