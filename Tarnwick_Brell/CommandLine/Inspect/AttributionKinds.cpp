#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Attribution/Ledger.h"
#include "NewsroomKit/Attribution/SubjectTimeline.h"
#include "NewsroomKit/Clusters/ClusterOverlay.h"
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
using StoriesByID = std::unordered_map<std::string, const kit::Story*>;

/// The given groups as clusters of known stories, each of which is in the first that names it.
std::vector<kit::StoryCluster> clustersOf(const Groups& groups, const StoriesByID& byID) {
    std::set<std::string> placed;
    std::vector<kit::StoryCluster> clusters;
    for (const auto& group : groups) {
        kit::StoryCluster cluster;
        for (const auto& id : group) {
            if (byID.contains(id) && placed.insert(id).second) cluster.storyIDs.push_back(id);
        }
        cluster.whys.resize(cluster.storyIDs.size());
        clusters.push_back(std::move(cluster));
    }
    return clusters;
}

/// The groups as given, or the clusters of the stories, with what the corrections say.
Groups groupsOf(const json::object& input, const CorrectedStories& corrected) {
    const kit::ClusterOverrides overrides{.joined = corrected.overlay.joined(),
                                          .apart = corrected.overlay.apart()};
    std::vector<kit::StoryCluster> clusters;
    if (const auto given = optional<Groups>(input, "clusters")) {
        StoriesByID byID;
        for (const auto& story : corrected.stories) byID.emplace(story.id, &story);
        clusters = clustersOf(*given, byID);
        const auto timeOf = [&](const std::string& id) {
            const auto known = byID.find(id);
            return known == byID.end() ? nullptr : &known->second->publishedAt;
        };
        kit::applyOverrides(overrides, timeOf, clusters);
    } else {
        kit::StoryClusterer clusterer;
        clusterer.add(corrected.stories);
        clusterer.setOverrides(overrides);
        clusters = clusterer.clusters();
    }
    Groups groups;
    for (const auto& cluster : clusters) groups.push_back(cluster.storyIDs);
    return groups;
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
