#include "NewsroomKit/Panels/Scoops.h"

#include <algorithm>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

std::vector<Scoop> scoops(const PanelNews& news) {
    const Instant earliest = news.now - kScoopsSpan;
    std::vector<Scoop> scoops;
    for (const auto& group : groupStories(news, earliest)) {
        if (group.outlets.size() < 2) continue;
        const Story& first = *group.first().story;
        if (first.isAppleSource || first.publishedAt < earliest) continue;
        const auto& second = *group.outlets[1];
        if (!leadOf(first.publishedAt, second.story->publishedAt)) continue;
        scoops.push_back({.first = StoryMention::of(*group.outlets[0]),
                          .second = StoryMention::of(second),
                          .outlets = group.outlets.size()});
    }
    std::stable_sort(scoops.begin(), scoops.end(), [](const Scoop& a, const Scoop& b) {
        return a.first.publishedAt > b.first.publishedAt;
    });
    if (scoops.size() > kMostScoops) scoops.resize(kMostScoops);
    return scoops;
}

}  // namespace kit
