#include "NewsroomKit/Panels/ArchiveCoverage.h"

#include <algorithm>

namespace kit {

std::vector<ArchiveCoverage> archiveCoverage(const ArchiveStatus& status) {
    std::vector<ArchiveCoverage> rows;
    for (const auto& source : status.sources) {
        if (!source.listed || !source.stored || source.listed->value <= 0) continue;
        const auto stored = std::clamp<std::int64_t>(source.stored->value, 0, source.listed->value);
        rows.push_back(
            {.name = source.name,
             .stored = stored,
             .listed = source.listed->value,
             .share = static_cast<double>(stored) / static_cast<double>(source.listed->value)});
    }
    std::ranges::stable_sort(rows, std::ranges::greater{}, &ArchiveCoverage::share);
    return rows;
}

}  // namespace kit
