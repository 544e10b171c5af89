#include "NewsroomKit/Panels/StoryTimeline.h"

#include <map>
#include <string>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

StoryTimeline storyTimeline(const std::vector<ClusterMember>& members) {
    std::vector<PanelStory> stories;
    StoryCluster cluster;
    std::map<const Story*, const std::string*> whys;
    for (const auto& member : members) {
        stories.push_back({.story = &member.story});
        cluster.storyIDs.push_back(member.story.id);
        whys.emplace(&member.story, &member.why);
    }
    const auto groups =
        groupStories({.stories = stories, .clusters = {&cluster, 1}}, Instant::min());
    if (groups.empty() || groups.front().outlets.size() < 2) return {};
    const auto& outlets = groups.front().outlets;
    const auto first = outlets[0]->story->publishedAt;
    StoryTimeline timeline{.lead = leadOf(first, outlets[1]->story->publishedAt),
                           .isFirstKnown = !isDayOnly(first)};
    for (const auto* outlet : outlets) {
        const auto then = outlet->story->publishedAt;
        timeline.rows.push_back(
            {.mention = StoryMention::of(*outlet), .why = *whys.at(outlet->story)});
        if (!isDayOnly(first) && !isDayOnly(then)) timeline.rows.back().delay = then - first;
    }
    return timeline;
}

}  // namespace kit
