#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"

#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "NewsroomKit/Panels/Claims.h"
#include "NewsroomKit/Panels/Coverage.h"

namespace brell {

std::vector<desk::StoredStory> PanelHoldings::newest(const newsroom::StoryQuery& query,
                                                     Origin origin, std::size_t limit) {
    std::vector<desk::StoredStory> found;
    const auto compiled = query.compiled();
    session_.storeForReading().stories().eachInWireOrder(
        std::nullopt, [&](const desk::StoredStory& stored) {
            if (origin == Origin::apple && !stored.story.isAppleSource) return true;
            if (compiled.matches(stored.story)) found.push_back(stored);
            return found.size() < limit;
        });
    return found;
}

const std::vector<desk::StoredStory>& PanelHoldings::recent() {
    if (recent_) return *recent_;
    recent_.emplace();
    session_.storeForReading().stories().eachInWireOrder(
        now() - newsroom::kCoverageSpan, [&](const desk::StoredStory& stored) {
            recent_->push_back(stored);
            return true;
        });
    return *recent_;
}

const std::vector<newsroom::StoryCluster>& PanelHoldings::clusters() {
    if (clusters_) return *clusters_;
    std::vector<newsroom::Story> stories;
    for (const auto& stored : recent()) {
        if (stored.story.publishedAt < now() - newsroom::kClaimsSpan) break;
        stories.push_back(stored.story);
    }
    newsroom::StoryClusterer clusterer;
    clusterer.add(stories);
    return clusters_.emplace(clusterer.clusters());
}

std::optional<newsroom::Instant> PanelHoldings::lastLook() {
    return session_.storeForReading().state().instant(desk::DeskState::kNewSince);
}

MatchedNews::MatchedNews(PanelHoldings& holdings, const newsroom::StoryQuery& query)
    : holdings_(holdings) {
    const auto compiled = query.compiled();
    for (const auto& stored : holdings.recent()) {
        if (!compiled.matches(stored.story)) continue;
        stories_.push_back({.story = &stored.story,
                            .firstSeen = stored.firstSeen,
                            .isRead = stored.readAt.has_value()});
    }
}

}  // namespace brell
