#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "NewsroomKit/Panels/Coverage.h"
#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

/// The clusters of all stories that a panel can show. The window and the command line both use
/// them, so that their panels agree.
class RecentClusters {
public:
    /// The longest span of a panel, with what its first stories follow on from.
    static constexpr std::chrono::hours kSpan = kCoverageSpan + kEarlierContext;
    /// Of more stories only the newest are clustered.
    static constexpr std::size_t kMostStories = 50'000;

    /// Adds or replaces a story. One that is older than the span is ignored.
    void add(const Story& story, Instant now);

    /// Lays what the user says of stories that tell the same news, or do not, over the rules.
    void setCorrections(const CorrectionOverlay& corrections);

    /// Whether a story was added since the last call of clusters().
    bool hasChanged() const { return hasChanged_; }

    /// Drops what is too old and clusters the rest. Once a day the weights of words are taken anew
    /// from the titles of the span, without the last two days.
    std::vector<StoryCluster> clusters(Instant now);

private:
    StoryClusterer clusterer_;
    std::optional<std::chrono::sys_days> rememberedOn_{};  ///< when the memory was made
    bool hasChanged_ = false;
};

}  // namespace kit
