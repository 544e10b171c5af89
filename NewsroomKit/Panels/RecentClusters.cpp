#include "NewsroomKit/Panels/RecentClusters.h"

namespace kit {

void RecentClusters::add(const Story& story, Instant now) {
    if (story.publishedAt < now - kSpan) return;
    clusterer_.add({&story, 1});
    hasChanged_ = true;
}

void RecentClusters::setCorrections(const CorrectionOverlay& corrections) {
    clusterer_.setOverrides({.joined = corrections.joined(), .apart = corrections.apart()});
    hasChanged_ = true;
}

std::vector<StoryCluster> RecentClusters::clusters(Instant now) {
    hasChanged_ = false;
    clusterer_.forgetBefore(now - kSpan);
    clusterer_.keepNewest(kMostStories);
    const auto today = std::chrono::floor<std::chrono::days>(now);
    if (rememberedOn_ != today) {
        clusterer_.rememberBefore(today - WordMemory::kLeftOut);
        rememberedOn_ = today;
    }
    return clusterer_.clusters();
}

}  // namespace kit
