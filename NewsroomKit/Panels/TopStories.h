#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// News that several outlets are covering.
struct TopStory {
    StoryMention first{};                     ///< the earliest story, whose title is the headline
    std::vector<StoryMention> outlets{};      ///< each outlet's first story, by publication
    Sourcing sourcing = Sourcing::unlabeled;  ///< the firmest of all its stories
    Instant newest{};
    std::size_t unread = 0;  ///< stories

    bool operator==(const TopStory&) const = default;
};

inline constexpr std::size_t kMostTopStories = 20;
inline constexpr std::size_t kFewestOutlets = 2;  ///< below that it is not a top story
/// What nobody has written about for so long is no longer being covered.
inline constexpr std::chrono::hours kTopStoriesSpan{48};

/// The one that most outlets cover comes first, then the one with the newest story.
std::vector<TopStory> topStories(const PanelNews& news);

}  // namespace kit
