#include "NewsroomKit/Panels/ClusterSummary.h"

#include <chrono>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

ClusterSummary clusterSummary(std::span<const PanelStory> stories, Instant now,
                              const CorrectionOverlay* corrections) {
    StoryCluster cluster;
    for (const auto& story : stories) cluster.storyIDs.push_back(story.story->id);
    const PanelNews news{
        .stories = stories, .clusters = {&cluster, 1}, .now = now, .corrections = corrections};
    const auto groups = groupStories(news, Instant::min());
    const auto& group = groups.front();
    const auto first = group.first().story->publishedAt;

    ClusterSummary summary{.outlets = outletMentions(group),
                           .sourcing = group.sourcing(),
                           .newest = group.newest(),
                           .attribution = attributionOf(group, news)};
    for (const auto* story : group.stories) {
        const auto then = story->story->publishedAt;
        summary.stories.push_back({.mention = StoryMention::of(*story),
                                   .isFirst = group.outlets.size() > 1 &&
                                              isKnownFirst(summary.attribution, *story->story)});
        if (!isDayStamp(first) && !isDayStamp(then)) summary.stories.back().delay = then - first;
        summary.unread += story->isRead ? 0 : 1;
        summary.lastHour += then <= now && then > now - std::chrono::hours(1) ? 1 : 0;
    }
    return summary;
}

}  // namespace kit
