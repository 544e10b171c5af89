#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Desk/LiveQuery.h"
#include "Tarnwick_Brell/Desk/Wire.h"

namespace app {

/// One walk through the wire, newest first, that copies what panels look at from the stories
/// that one of the queries wants. Changes of the wire in between are no harm: what comes above
/// the place reached is missing until the next walk.
class WireScan {
public:
    explicit WireScan(std::size_t mostStories) : mostStories_(mostStories) {}

    /// Equal queries are tested once. Returns the query's place for `storiesOf`.
    std::size_t ask(const kit::StoryQuery& query, kit::Instant earliest);

    /// Returns whether the walk is over.
    bool continueFor(const Wire& wire, std::chrono::steady_clock::duration budget);

    std::span<const kit::PanelStory> storiesOf(std::size_t question) const {
        return questions_[question].found;
    }
    /// Stories published after that were all looked at.
    kit::Instant from(kit::Instant earliest) const;

private:
    struct Question {
        kit::StoryQuery query{};
        kit::Instant earliest{};
        LiveQuery::Test test{};
        std::vector<kit::PanelStory> found{};
    };

    void look(const PackedStory& story);

    std::size_t mostStories_;
    std::vector<Question> questions_;
    std::deque<kit::Story> stories_;  ///< in a deque they stay where they are
    std::int64_t untestedBelow_ = std::numeric_limits<std::int64_t>::max();
    std::optional<kit::Instant> cutAt_;
};

}  // namespace app
