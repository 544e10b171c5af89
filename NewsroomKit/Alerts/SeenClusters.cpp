#include "NewsroomKit/Alerts/SeenClusters.h"

#include <algorithm>

namespace kit {

SeenClusters::SeenClusters(std::span<const StoryCluster> clusters) {
    for (std::size_t number = 0; number < clusters.size(); ++number) {
        for (const auto& id : clusters[number].storyIDs) clusterOf_[id] = number;
    }
}

void SeenClusters::see(const Story& story) {
    const auto cluster = clusterOf_.find(story.id);
    if (cluster == clusterOf_.end()) return;
    auto& stories = seen_[cluster->second];
    const auto same = std::ranges::find(stories, story.id, &Story::id);
    if (same == stories.end()) {
        stories.push_back(&story);
    } else {
        *same = &story;
    }
}

std::vector<const Story*> SeenClusters::of(const Story& story) const {
    const auto cluster = clusterOf_.find(story.id);
    if (cluster == clusterOf_.end()) return {&story};
    const auto seen = seen_.find(cluster->second);
    return seen == seen_.end() ? std::vector{&story} : seen->second;
}

}  // namespace kit
