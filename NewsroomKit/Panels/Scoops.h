#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"

namespace kit {

/// News that one outlet told before the others.
struct Scoop {
    StoryMention first{};
    StoryMention second{};  ///< the next outlet's
    std::size_t outlets = 0;

    bool operator==(const Scoop&) const = default;
};

inline constexpr std::size_t kMostScoops = 20;
inline constexpr std::chrono::days kScoopsSpan{7};

/// The latest scoop comes first. News that Apple itself told first is an announcement, not a
/// scoop; where the first two outlets share a time, nobody was first. Nor can it be told
/// where the first story is dated at midnight sharp, as feeds do that give a day only.
std::vector<Scoop> scoops(const PanelNews& news);

}  // namespace kit
