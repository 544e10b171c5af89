#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Archive/ArchiveStatus.h"

namespace kit {

/// How much of a source's stories the archive holds.
struct ArchiveCoverage {
    std::string name{};
    std::int64_t stored = 0;
    std::int64_t listed = 0;
    double share = 0;  ///< from 0 to 1

    bool operator==(const ArchiveCoverage&) const = default;
};

/// The most complete first. Sources whose figures the service does not tell, or of which it knows
/// no story, are left out.
std::vector<ArchiveCoverage> archiveCoverage(const ArchiveStatus& status);

}  // namespace kit
