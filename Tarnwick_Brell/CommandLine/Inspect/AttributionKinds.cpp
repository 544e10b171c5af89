#include <vector>

#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Attribution/CorrectedGroups.h"
#include "NewsroomKit/Attribution/Ledger.h"
#include "NewsroomKit/Attribution/SubjectTimeline.h"
#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

namespace {

/// The stories of a line after its corrections.
struct CorrectedStories {
    explicit CorrectedStories(const json::object& input)
        : stories(required<std::vector<kit::Story>>(input, "stories")) {
        const auto corrections = optional<std::vector<kit::Correction>>(input, "corrections")
                                     .value_or(std::vector<kit::Correction>());
        for (const auto& correction : corrections) kit::requireSound(correction);
        overlay = kit::CorrectionOverlay(corrections);
        for (auto& story : stories) {
            overlay.applyTo(story);
            pointers.push_back(&story);
        }
    }

    std::vector<kit::Story> stories;
    std::vector<const kit::Story*> pointers;
    kit::CorrectionOverlay overlay;
};

using Groups = std::vector<std::vector<std::string>>;

/// The groups as given, or the clusters of the stories.
Groups groupsOf(const json::object& input, const CorrectedStories& corrected) {
    Groups groups;
    if (auto given = optional<Groups>(input, "clusters")) {
        groups = std::move(*given);
    } else {
        kit::StoryClusterer clusterer;
        clusterer.add(corrected.stories);
        for (const auto& cluster : clusterer.clusters()) groups.push_back(cluster.storyIDs);
    }
    return kit::correctedGroups(std::move(groups), corrected.overlay);
}

template <class T>
json::object answer(const T& record) {
    return kit::encode(record, DateStyle::secondsSince1970).as_object();
}

}  // namespace

json::object attribution(const json::object& input) {
    const CorrectedStories corrected(input);
    const auto archive = optional<std::vector<kit::ArchivedStory>>(input, "archive");
    const auto traces = optional<std::vector<kit::TraceResult>>(input, "trace");
    kit::AttributionEvidence evidence{.stories = corrected.pointers,
                                      .corrections = &corrected.overlay};
    if (archive) evidence.archive = *archive;
    if (traces) evidence.traces = *traces;
    return answer(kit::attributionOf(evidence));
}

json::object ledger(const json::object& input) {
    const CorrectedStories corrected(input);
    const auto now = required<kit::Instant>(input, "now");
    return answer(kit::makeLedger(corrected.pointers, groupsOf(input, corrected), now));
}

json::object timeline(const json::object& input) {
    const CorrectedStories corrected(input);
    const auto changes = optional<std::vector<kit::TimelineSignal>>(input, "signals")
                             .value_or(std::vector<kit::TimelineSignal>());
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (!changes[i].at())
            throw kit::RecordError("signals[" + std::to_string(i) + "]",
                                   "happenedAt or seenAt is needed");
    }
    const auto stages = kit::subjectTimeline(corrected.pointers, changes);
    return {{"stages", kit::encode(stages, DateStyle::secondsSince1970)}};
}

}  // namespace cli::inspect
