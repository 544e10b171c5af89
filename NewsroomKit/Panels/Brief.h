#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <variant>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Panels/TrackerChanges.h"

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

    std::optional<Instant> since{};  ///< the brief's start, when there was a last look
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

/// Where a brief begins: at the last look, at most 30 days ago, or a day ago without one.
Instant briefStart(std::optional<Instant> lastLook, Instant now);

/// New is what the desk saw after the brief's start. Topics that more outlets tell come first, then
/// better sourced ones, then newer ones. What only Apple tells is no topic.
BriefContent brief(const PanelNews& news, std::optional<Instant> lastLook);

/// One sentence of a brief.
using BriefItem = std::variant<BriefContent::Topic, TrackerChange, BriefContent::ApplePosts>;

/// Topics and changes by turns, so that neither stand below all of the others; Apple's posts stand
/// last among the changes.
std::vector<BriefItem> briefItems(const BriefContent& content,
                                  const std::vector<TrackerChange>& changes);

}  // namespace kit
