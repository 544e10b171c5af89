#include "NewsroomKit/Panels/TopStories.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

namespace {

/// A confirmed story counts as much as a rumor of a third more outlets.
double firmness(Sourcing sourcing) {
    switch (sourcing) {
        case Sourcing::confirmed: return 1.33;
        case Sourcing::onRecord: return 1.25;
        case Sourcing::report: return 1.15;
        case Sourcing::rumor: return 1.0;
        case Sourcing::unlabeled: return 1.0;
    }
    return 1.0;
}

double freshness(Instant newest, Instant now) {
    const std::chrono::duration<double> age = std::max(now - newest, Instant::duration(0));
    return std::exp2(-age / std::chrono::duration<double>(kFreshnessHalfLife));
}

std::size_t outletsOfLastHour(const StoryGroup& group, Instant now) {
    return static_cast<std::size_t>(std::ranges::count_if(group.outlets, [&](const auto* outlet) {
        const auto at = outlet->story->publishedAt;
        return at <= now && at > now - std::chrono::hours(1);
    }));
}

double scoreOf(const StoryGroup& group, Instant now) {
    // Each outlet of the last hour counts half as much again.
    const auto outlets = static_cast<double>(group.outlets.size()) +
                         static_cast<double>(outletsOfLastHour(group, now)) / 2;
    return outlets * firmness(group.sourcing()) * freshness(group.newest(), now);
}

TopStory topStoryOf(const StoryGroup& group, double score, const PanelNews& news) {
    const auto unread =
        std::ranges::count_if(group.stories, [](const auto* story) { return !story->isRead; });
    return {.first = StoryMention::of(group.first()),
            .outlets = outletMentions(group),
            .sourcing = group.sourcing(),
            .newest = group.newest(),
            .unread = static_cast<std::size_t>(unread),
            .lastHour = outletsOfLastHour(group, news.now),
            .attribution = attributionOf(group, news),
            .score = score};
}

}  // namespace

std::vector<TopStory> topStories(const PanelNews& news) {
    const auto groups = groupStories(news, news.now - kTopStoriesSpan);
    std::vector<std::pair<double, const StoryGroup*>> ranked;
    for (const auto& group : groups) {
        if (group.outlets.size() >= kFewestOutlets)
            ranked.emplace_back(scoreOf(group, news.now), &group);
    }
    // Newest first already.
    std::ranges::stable_sort(ranked, std::ranges::greater{},
                             [](const auto& row) { return row.first; });
    if (ranked.size() > kMostTopStories) ranked.resize(kMostTopStories);
    std::vector<TopStory> stories;
    for (const auto& [score, group] : ranked) stories.push_back(topStoryOf(*group, score, news));
    return stories;
}

}  // namespace kit
