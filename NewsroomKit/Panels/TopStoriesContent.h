#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/ClusterSummary.h"
#include "NewsroomKit/Panels/Scoops.h"
#include "NewsroomKit/Panels/TopStories.h"

namespace kit {

/// What the page of top stories shows: the news that most outlets cover, each with its timeline,
/// and who had news first.
struct TopStoriesContent {
    /// How often an outlet was first with news that others then told.
    struct Firsts {
        std::string outlet{};
        std::size_t times = 0;

        bool operator==(const Firsts&) const = default;
    };

    std::vector<ClusterSummary> subjects{};  ///< in the order of topStories()
    std::size_t stories = 0;                 ///< of all subjects
    std::vector<Scoop> scoops{};             ///< the latest first
    std::vector<Firsts> firsts{};            ///< the most first, then by name; few outlets
    std::size_t otherOutlets = 0;            ///< further ones that were first
    std::size_t otherFirsts = 0;             ///< how often they were
    std::size_t allFirsts = 0;
};

/// The span in which outlets' firsts are counted.
inline constexpr std::chrono::days kFirstsSpan{30};
inline constexpr std::size_t kMostFirsts = 6;

/// `news` must reach back kFirstsSpan and the context of its groups.
TopStoriesContent topStoriesContent(const PanelNews& news);

}  // namespace kit
