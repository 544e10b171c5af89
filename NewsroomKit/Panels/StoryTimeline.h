#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// How the news of a cluster came to its outlets.
struct StoryTimeline {
    struct Row {
        StoryMention mention{};  ///< the outlet's first story
        /// Behind the first outlet; absent where one of the two times is only a day.
        std::optional<Instant::duration> delay{};
        bool isFirst = false;  ///< it is known to be the first
        std::string why{};     ///< why it tells this news; empty for the cluster's leader

        bool operator==(const Row&) const = default;
    };

    std::vector<Row> rows{};  ///< by publication; empty for a single outlet
    Attribution attribution{};
};

/// A story with the reason why it belongs to its cluster.
struct ClusterMember {
    Story story{};
    std::string why{};
};

/// `members`: those of one cluster.
StoryTimeline storyTimeline(const std::vector<ClusterMember>& members,
                            const CorrectionOverlay* corrections = nullptr);

}  // namespace kit
