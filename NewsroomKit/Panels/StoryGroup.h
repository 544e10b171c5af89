#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// The stories of a panel that tell the same news: a cluster's, or one alone.
struct StoryGroup {
    /// By time of publication, the earliest first; equal times by id. Never empty.
    std::vector<const PanelStory*> stories{};
    /// The first story of each outlet, in the same order. Names that differ in letter case,
    /// accents or width only are one outlet.
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

/// The key under which an outlet's name is the same however it is written.
std::string outletKey(const Story& story);

/// How long before the second outlet the first one told the news. Nothing where times do not say:
/// they are equal, or the first is midnight sharp, as in feeds that give a day only.
std::optional<Instant::duration> leadOf(Instant first, Instant second);

/// Feeds that give a day without a time have midnight sharp.
bool isDayOnly(Instant instant);

/// The mentions of the outlets' first stories.
std::vector<StoryMention> outletMentions(const StoryGroup& group);

}  // namespace kit
