#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Archive/ArchivePage.h"
#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// An article about the same news, from the wire or the archive.
struct CoverageItem {
    std::string outlet{};
    std::string title{};
    std::string url{};
    Instant at{};
    bool isDayOnly = false;                ///< only the day of `at` is known
    std::optional<std::string> storyID{};  ///< on the wire
    std::vector<std::string> credits{};    ///< outlets that it credits

    bool operator==(const CoverageItem&) const = default;
};

/// Who else ran a story.
struct CoverageFinder {
    std::vector<CoverageItem> items{};  ///< by time, then by outlet
    std::size_t outlets = 0;
    std::size_t outletsHere = 0;  ///< of which a story is on the wire
    Attribution attribution{};

    bool operator==(const CoverageFinder&) const = default;
};

/// The archive is asked for stories of that long before the first story on the wire and after the
/// last one.
inline constexpr std::chrono::hours kCoverageMargin{48};

/// `stories`: those on the wire that tell the same news, at least one. Of the archive's stories
/// those count that are the same articles or would be in the same cluster.
CoverageFinder coverageFinder(std::span<const Story* const> stories,
                              std::span<const ArchivedStory> archive,
                              const CorrectionOverlay* corrections = nullptr);

}  // namespace kit
