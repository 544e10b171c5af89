#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// A cluster in one row: how many outlets have the news, who was first, whether it still grows.
struct ClusterSummary {
    struct Member {
        StoryMention mention{};
        /// Behind the first story; absent where one of the two times is only a day.
        std::optional<Instant::duration> delay{};
        bool isFirst = false;  ///< it is known to be the first

        bool operator==(const Member&) const = default;
    };

    std::vector<Member> stories{};            ///< by publication, the earliest first; never empty
    std::vector<StoryMention> outlets{};      ///< each outlet's first story, in the same order
    Sourcing sourcing = Sourcing::unlabeled;  ///< the firmest of all its stories
    Instant newest{};
    std::size_t unread = 0;
    std::size_t lastHour = 0;  ///< stories published in the hour before now
    Attribution attribution{};

    bool operator==(const ClusterSummary&) const = default;
};

/// `stories`: those of one cluster, at least one, in any order.
ClusterSummary clusterSummary(std::span<const PanelStory> stories, Instant now,
                              const CorrectionOverlay* corrections = nullptr);

}  // namespace kit
