#include "NewsroomKit/Panels/StoryTimeline.h"

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

StoryTimeline storyTimeline(const std::vector<Story>& stories) {
    std::vector<PanelStory> members;
    StoryCluster cluster;
    for (const auto& story : stories) {
        members.push_back({.story = &story});
        cluster.storyIDs.push_back(story.id);
    }
    const auto groups =
        groupStories({.stories = members, .clusters = {&cluster, 1}}, Instant::min());
    if (groups.empty() || groups.front().outlets.size() < 2) return {};
    const auto& outlets = groups.front().outlets;
    const auto first = outlets[0]->story->publishedAt;
    StoryTimeline timeline{.lead = leadOf(first, outlets[1]->story->publishedAt),
                           .isFirstKnown = !isDayOnly(first)};
    for (const auto* outlet : outlets) {
        const auto then = outlet->story->publishedAt;
        timeline.rows.push_back({.mention = StoryMention::of(*outlet)});
        if (!isDayOnly(first) && !isDayOnly(then)) timeline.rows.back().delay = then - first;
    }
    return timeline;
}

}  // namespace kit
