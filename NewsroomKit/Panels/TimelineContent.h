#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Attribution/SubjectTimeline.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Trackers/Releases/SeenBuild.h"

namespace kit {

/// A stage that a subject has reached, with the story or the signal of it.
struct TimelineRow {
    TimelineStage stage{};
    std::optional<StoryMention> story{};
    std::optional<TimelineSignal> signal{};

    bool operator==(const TimelineRow&) const = default;
};

/// How a beat, a query or a cluster went from the first rumor to the release.
struct TimelineContent {
    std::vector<TimelineRow> stages{};  ///< by time
    /// Signals of the same subject, by time; those without are last.
    std::vector<TimelineSignal> changes{};
    std::size_t stories = 0;
    std::size_t outlets = 0;

    bool operator==(const TimelineContent&) const = default;
};

/// `stories`: those of the subject. `changes`: its signals.
TimelineContent timelineContent(std::span<const PanelStory> stories,
                                std::vector<TimelineSignal> changes);

/// The builds that a query means, as signals of its subject: public ones are releases. A query
/// without terms means none.
std::vector<TimelineSignal> buildSignals(std::span<const SeenBuild> builds,
                                         const StoryQuery& query);

/// Of logged signals those that a query means, but for releases: builds stand for these. A query
/// without terms means none.
std::vector<TimelineSignal> loggedSignals(std::span<const LoggedSignal> log,
                                          const StoryQuery& query);

/// The stages as lines of text for a file: day, stage, outlet, headline, separated by tabs.
std::string exportedTimeline(const TimelineContent& content);

}  // namespace kit
