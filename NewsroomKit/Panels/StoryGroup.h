#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// The stories of a panel that tell the same news: a cluster's, or one alone.
struct StoryGroup {
    /// By time of publication, the earliest first; equal times by id. Never empty.
    std::vector<const PanelStory*> stories{};
    /// The first story of each outlet, in the same order. Whoever links to another outlet's article
    /// is an outlet of its own.
    std::vector<const PanelStory*> outlets{};

    const PanelStory& first() const { return *stories.front(); }
    Instant newest() const { return stories.back()->story->publishedAt; }
    /// The firmest label of its stories.
    Sourcing sourcing() const;
};

/// Stories that were published this long before a panel's span still count as members of its
/// groups: they show who told the news first.
inline constexpr std::chrono::hours kEarlierContext{48};

/// Every story is in exactly one group, except those older than `earliest` and its context.
/// Groups whose newest story is older than `earliest` are left out. The group with the newest
/// story comes first, equal times by id of the first story.
std::vector<StoryGroup> groupStories(const PanelNews& news, Instant earliest);

/// Who was first with the news of the group.
Attribution attributionOf(const StoryGroup& group, const PanelNews& news);

/// The story is the one with which the first outlet was first, and that is not only a guess.
bool isKnownFirst(const Attribution& attribution, const Story& story);

/// The mentions of the outlets' first stories.
std::vector<StoryMention> outletMentions(const StoryGroup& group);

}  // namespace kit
