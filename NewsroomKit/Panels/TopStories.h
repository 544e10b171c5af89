#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// News that several outlets are covering.
struct TopStory {
    StoryMention first{};                     ///< the earliest story, whose title is the headline
    std::vector<StoryMention> outlets{};      ///< each outlet's first story, by publication
    Sourcing sourcing = Sourcing::unlabeled;  ///< the firmest of all its stories
    Instant newest{};
    std::size_t unread = 0;    ///< stories
    std::size_t lastHour = 0;  ///< outlets that began to cover it in the hour before now
    Attribution attribution{};
    double score = 0;  ///< by which it is ranked

    bool operator==(const TopStory&) const = default;
};

inline constexpr std::size_t kMostTopStories = 20;
inline constexpr std::size_t kFewestOutlets = 2;  ///< below that it is not a top story
/// What nobody has written about for so long is no longer being covered.
inline constexpr std::chrono::hours kTopStoriesSpan{48};
/// After that long without a new story, news counts half.
inline constexpr std::chrono::hours kFreshnessHalfLife{8};

/// Ranked by how many outlets cover it, how firmly it is sourced, how fresh it is and whether it
/// still grows.
std::vector<TopStory> topStories(const PanelNews& news);

}  // namespace kit
