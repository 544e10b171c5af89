#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// What the panel's stories told since the reader's last look.
struct BriefContent {
    struct Topic {
        StoryMention headline{};                  ///< the earliest new story
        std::vector<StoryMention> outlets{};      ///< each outlet's first new story, by publication
        Sourcing sourcing = Sourcing::unlabeled;  ///< the firmest of its new stories

        bool operator==(const Topic&) const = default;
    };
    /// What Apple published itself.
    struct ApplePosts {
        std::size_t count = 0;
        StoryMention latest{};

        bool operator==(const ApplePosts&) const = default;
    };

    std::optional<Instant> since{};  ///< the last look, when there was one
    std::size_t stories = 0;         ///< new ones, Apple's own among them
    std::size_t outlets = 0;         ///< they come from
    std::vector<Topic> topics{};
    std::optional<ApplePosts> apple{};

    bool isEmpty() const { return stories == 0; }
    bool operator==(const BriefContent&) const = default;
};

inline constexpr std::size_t kMostTopics = 5;
/// How long before the last look a new story may have been published: what a source added
/// today brings along from last month is not what changed.
inline constexpr std::chrono::hours kBriefLateness{24};

/// New is what the desk saw after `since`; without a last look, of the last day. Topics that
/// more outlets tell come first, then better sourced ones, then newer ones. What only Apple
/// tells is no topic.
BriefContent brief(const PanelNews& news, std::optional<Instant> since);

/// A sentence or headline of a brief and the stories it rests on.
struct BriefLine {
    std::string text{};
    std::vector<StoryMention> sources{};

    bool operator==(const BriefLine&) const = default;
};

/// The brief in words: how much came, Apple's own posts, then a line for each topic. A single
/// line when nothing is new.
std::vector<BriefLine> briefLines(const BriefContent& content);

}  // namespace kit
