#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Desk/LiveQuery.h"
#include "Tarnwick_Brell/Desk/Wire.h"

namespace app {

/// One scan of the wire, newest first. It copies what panels need of the stories that match one
/// of the queries: of those that may be a claim or share their news with others, everything. The
/// wire may change in between: stories that come above the place reached are missing until the next
/// scan.
class WireScan {
public:
    /// Summaries are copied on demand only: they are most of a story's text.
    enum class Summaries { no, yes };

    explicit WireScan(std::size_t mostStories, Summaries summaries = Summaries::no,
                      kit::SharedClusters clusters = nullptr);

    /// Equal queries are tested once. Returns the query's index for `storiesOf`.
    std::size_t add(const kit::StoryQuery& query, kit::Instant earliest);

    /// Returns whether the scan is over.
    bool continueFor(const Wire& wire, std::chrono::steady_clock::duration budget);

    std::span<const kit::PanelStory> storiesOf(std::size_t query) const {
        return queries_[query].found;
    }
    /// All stories published after this moment were scanned.
    kit::Instant from(kit::Instant earliest) const;

private:
    struct Query {
        kit::StoryQuery query{};
        kit::Instant earliest{};
        LiveQuery::Test wants{};
        std::vector<kit::PanelStory> found{};
    };

    void test(const PackedStory& story);
    bool needsWholeStory(const PackedStory& story) const;

    std::size_t mostStories_;
    Summaries summaries_;
    kit::SharedClusters clusters_;
    std::unordered_set<std::string_view> clustered_;  ///< ids, which the clusters hold
    std::vector<Query> queries_;
    std::deque<kit::Story> stories_;  ///< a deque does not move them
    std::int64_t untestedBelow_ = std::numeric_limits<std::int64_t>::max();
    std::optional<kit::Instant> cutAt_;
};

}  // namespace app
