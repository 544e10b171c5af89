#include "NewsroomKit/Panels/Scoops.h"

#include <algorithm>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

namespace {

bool isDayOnly(Instant instant) {
    return instant == std::chrono::floor<std::chrono::days>(instant);
}

}  // namespace

std::vector<Scoop> scoops(const PanelNews& news) {
    const Instant earliest = news.now - kScoopsSpan;
    std::vector<Scoop> scoops;
    for (const auto& group : groupStories(news, earliest)) {
        if (group.outlets.size() < 2) continue;
        const Story& first = *group.first().story;
        if (first.isAppleSource || first.publishedAt < earliest || isDayOnly(first.publishedAt)) {
            continue;
        }
        Scoop scoop{.first = StoryMention::of(*group.outlets[0]),
                    .second = StoryMention::of(*group.outlets[1]),
                    .outlets = group.outlets.size()};
        if (scoop.lead() > Instant::duration::zero()) scoops.push_back(std::move(scoop));
    }
    std::stable_sort(scoops.begin(), scoops.end(), [](const Scoop& a, const Scoop& b) {
        return a.first.publishedAt > b.first.publishedAt;
    });
    if (scoops.size() > kMostScoops) scoops.resize(kMostScoops);
    return scoops;
}

}  // namespace kit
