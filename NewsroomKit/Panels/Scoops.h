#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// News that one outlet told before the others, and that Apple had not told.
struct Scoop {
    /// The first outlet's story; where that is not on the wire, the earliest one of the others.
    StoryMention story{};
    Attribution attribution{};
    std::size_t followers = 0;  ///< outlets

    /// When it was told, as far as that is known.
    Instant at() const { return attribution.at.value_or(story.publishedAt); }

    bool operator==(const Scoop&) const = default;
};

inline constexpr std::size_t kMostScoops = 20;
inline constexpr std::chrono::days kScoopsSpan{7};

/// The latest scoops of that span before now, the latest first.
std::vector<Scoop> scoops(const PanelNews& news, std::chrono::days span = kScoopsSpan,
                          std::size_t most = kMostScoops);

}  // namespace kit
