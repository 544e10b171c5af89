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

namespace desk {

/// One walk through the wire, newest first, that copies what panels look at from the stories
/// that one of the queries wants. Changes of the wire in between are no harm: what comes above
/// the place reached is missing until the next walk.
class GatherRound {
public:
    explicit GatherRound(std::size_t mostStories) : mostStories_(mostStories) {}

    /// Equal queries are tested once. Returns the query's place for `storiesOf`.
    std::size_t ask(const newsroom::StoryQuery& query, newsroom::Instant earliest);

    /// Returns whether the walk is over.
    bool continueFor(const Wire& wire, std::chrono::steady_clock::duration budget);

    std::span<const newsroom::PanelStory> storiesOf(std::size_t question) const {
        return questions_[question].found;
    }
    /// Stories published after that were all looked at.
    newsroom::Instant from(newsroom::Instant earliest) const;

private:
    struct Question {
        newsroom::StoryQuery query{};
        newsroom::Instant earliest{};
        LiveQuery::Test test{};
        std::vector<newsroom::PanelStory> found{};
    };

    void look(const PackedStory& story);

    std::size_t mostStories_;
    std::vector<Question> questions_;
    std::deque<newsroom::Story> stories_;  ///< in a deque they stay where they are
    std::int64_t untestedBelow_ = std::numeric_limits<std::int64_t>::max();
    std::optional<newsroom::Instant> cutAt_;
};

}  // namespace desk
