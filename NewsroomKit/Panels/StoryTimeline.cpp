#include "NewsroomKit/Panels/StoryTimeline.h"

#include <map>
#include <string>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

StoryTimeline storyTimeline(const std::vector<ClusterMember>& members,
                            const CorrectionOverlay* corrections) {
    std::vector<PanelStory> stories;
    StoryCluster cluster;
    std::map<const Story*, const std::string*> whys;
    for (const auto& member : members) {
        stories.push_back({.story = &member.story});
        cluster.storyIDs.push_back(member.story.id);
        whys.emplace(&member.story, &member.why);
    }
    const PanelNews news{.stories = stories, .clusters = {&cluster, 1}, .corrections = corrections};
    const auto groups = groupStories(news, Instant::min());
    if (groups.empty() || groups.front().outlets.size() < 2) return {};
    StoryTimeline timeline{.attribution = attributionOf(groups.front(), news)};
    const auto first = groups.front().first().story->publishedAt;
    for (const auto* outlet : groups.front().outlets) {
        const auto then = outlet->story->publishedAt;
        timeline.rows.push_back({.mention = StoryMention::of(*outlet),
                                 .isFirst = isKnownFirst(timeline.attribution, *outlet->story),
                                 .why = *whys.at(outlet->story)});
        if (!isDayStamp(first) && !isDayStamp(then)) timeline.rows.back().delay = then - first;
    }
    return timeline;
}

}  // namespace kit
