#include "NewsroomKit/Panels/TopStories.h"

#include <algorithm>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

std::vector<TopStory> topStories(const PanelNews& news) {
    auto groups = groupStories(news, news.now - kTopStoriesSpan);
    std::erase_if(groups, [](const auto& group) { return group.outlets.size() < kFewestOutlets; });
    // Newest first already.
    std::stable_sort(groups.begin(), groups.end(), [](const auto& a, const auto& b) {
        return a.outlets.size() > b.outlets.size();
    });
    if (groups.size() > kMostTopStories) groups.resize(kMostTopStories);

    std::vector<TopStory> stories;
    for (const auto& group : groups) {
        const auto unread = std::count_if(group.stories.begin(), group.stories.end(),
                                          [](const auto* story) { return !story->isRead; });
        stories.push_back({.first = StoryMention::of(group.first()),
                           .outlets = outletMentions(group),
                           .sourcing = group.sourcing(),
                           .newest = group.newest(),
                           .unread = static_cast<std::size_t>(unread)});
    }
    return stories;
}

}  // namespace kit
