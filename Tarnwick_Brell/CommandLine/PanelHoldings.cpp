#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"

#include "NewsroomKit/Panels/RecentClusters.h"

namespace cli {

std::vector<app::StoredStory> PanelHoldings::newest(const kit::StoryQuery& query, Origin origin,
                                                    std::size_t limit) {
    std::vector<app::StoredStory> found;
    const auto compiled = query.compiled();
    session_.storeForReading().stories().eachInWireOrder(
        std::nullopt, [&](const app::StoredStory& stored) {
            if (origin == Origin::apple && !stored.story.isAppleSource) return true;
            if (compiled.matches(stored.story)) found.push_back(stored);
            return found.size() < limit;
        });
    return found;
}

const std::vector<app::StoredStory>& PanelHoldings::recent() {
    if (recent_) return *recent_;
    recent_.emplace();
    session_.storeForReading().stories().eachInWireOrder(now() - kit::RecentClusters::kSpan,
                                                         [&](const app::StoredStory& stored) {
                                                             recent_->push_back(stored);
                                                             return true;
                                                         });
    return *recent_;
}

const std::vector<kit::StoryCluster>& PanelHoldings::clusters() {
    if (clusters_) return *clusters_;
    kit::RecentClusters clusters;
    for (const auto& stored : recent()) clusters.add(stored.story, now());
    clusters.setCorrections(*corrections());
    return clusters_.emplace(clusters.clusters(now()));
}

const kit::CorrectionOverlay* PanelHoldings::corrections() {
    return session_.storeForReading().corrections().overlay().get();
}

std::optional<kit::Instant> PanelHoldings::lastLook() {
    return session_.storeForReading().state().instant(app::DeskState::kNewSince);
}

MatchedNews::MatchedNews(PanelHoldings& holdings, const kit::StoryQuery& query)
    : holdings_(holdings) {
    const auto compiled = query.compiled();
    for (const auto& stored : holdings.recent()) {
        if (!compiled.matches(stored.story)) continue;
        stories_.push_back({.story = &stored.story,
                            .firstSeen = stored.firstSeen,
                            .isRead = stored.readAt.has_value()});
    }
}

}  // namespace cli
