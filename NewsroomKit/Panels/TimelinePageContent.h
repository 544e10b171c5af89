#pragma once

#include <chrono>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Panels/LedgerContent.h"
#include "NewsroomKit/Panels/TimelineContent.h"
#include "NewsroomKit/Trackers/Releases/SeenBuild.h"

namespace kit {

/// How a subject went from the first rumor to its release, on one scale, with what was claimed of
/// it.
struct TimelinePage {
    struct Step {
        TimelineRow row{};
        Attribution attribution{};  ///< of the story's news
        std::size_t outlets = 0;    ///< that told the news

        const std::string& title() const {
            return row.story ? row.story->title : row.signal->title;
        }
    };
    /// The stories of a piece of the scale.
    struct Bar {
        Instant begins{};
        std::size_t stories = 0;
    };

    // The scale: from the first story or stage to now.
    Instant from{};
    Instant to{};
    std::chrono::hours barSpan{};  ///< an hour, a day or a week

    std::vector<Step> steps{};               ///< by time
    std::vector<Bar> bars{};                 ///< by time; without a story too
    std::vector<TimelineSignal> releases{};  ///< within the scale, by time
    std::vector<LedgerRow> claims{};         ///< the latest first
    std::size_t stories = 0;
    std::size_t outlets = 0;
    std::size_t confirmed = 0;  ///< claims
    std::size_t denied = 0;
};

/// `changes`: what the desk saw change about the subject.
TimelinePage timelinePage(const PanelNews& news, std::vector<TimelineSignal> changes);

/// The builds whose platform and version stand in one of the stories' headlines.
std::vector<TimelineSignal> releaseSignals(std::span<const SeenBuild> builds,
                                           std::span<const PanelStory> stories);

}  // namespace kit
