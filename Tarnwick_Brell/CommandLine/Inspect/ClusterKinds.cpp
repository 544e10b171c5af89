#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

namespace {

/// Only what joins and splits counts, so the other keys of a correction may be missing.
std::vector<kit::Correction> relationsIn(const json::object& input) {
    std::vector<kit::Correction> relations;
    const auto* given = input.if_contains("corrections");
    if (!given || given->is_null()) return relations;
    if (!given->is_array()) throw kit::RecordError("corrections", "a list is expected");
    for (const auto& value : given->get_array()) {
        if (!value.is_object()) throw kit::RecordError("corrections", "objects are expected");
        const auto& object = value.get_object();
        const auto kind = required<kit::Correction::Kind>(object, "kind");
        if (kind != kit::Correction::Kind::same && kind != kit::Correction::Kind::notSame) continue;
        auto stories = required<std::vector<std::string>>(object, "stories");
        if (stories.empty()) continue;
        relations.push_back(
            {.kind = kind,
             .stories = std::move(stories),
             .madeAt = optional<kit::Instant>(object, "madeAt").value_or(kit::Instant())});
    }
    return relations;
}

kit::ClusterOverrides overridesIn(const json::object& input) {
    const kit::CorrectionOverlay overlay(relationsIn(input));
    return {.joined = overlay.joined(), .apart = overlay.apart()};
}

kit::WordMemory memoryIn(const json::object& input, const std::vector<kit::Story>& stories) {
    const auto titles = optional<std::vector<std::string>>(input, "memory");
    if (!titles) return kit::WordMemory::of(stories);
    kit::WordMemory memory;
    for (const auto& title : *titles) memory.add(title);
    return memory;
}

json::object encoded(const kit::StoryCluster& cluster) {
    json::object whys;
    for (std::size_t place = 1; place < cluster.storyIDs.size(); ++place) {
        whys[cluster.storyIDs[place]] = cluster.whys[place];
    }
    return {{"id", cluster.id}, {"stories", kit::encode(cluster.storyIDs)}, {"why", whys}};
}

}  // namespace

json::object clusters(const json::object& input) {
    const auto stories = required<std::vector<kit::Story>>(input, "stories");
    kit::StoryClusterer clusterer(memoryIn(input, stories));
    clusterer.setOverrides(overridesIn(input));
    clusterer.add(stories);
    auto found = clusterer.clusters();

    std::map<std::string, kit::Instant> times;
    for (const auto& story : stories) times[story.id] = story.publishedAt;
    std::sort(found.begin(), found.end(), [&](const auto& a, const auto& b) {
        return std::tie(times[a.id], a.id) < std::tie(times[b.id], b.id);
    });
    json::array answer;
    for (const auto& cluster : found) answer.push_back(encoded(cluster));
    return {{"clusters", std::move(answer)}};
}

}  // namespace cli::inspect
