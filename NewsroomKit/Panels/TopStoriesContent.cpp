#include "NewsroomKit/Panels/TopStoriesContent.h"

#include <algorithm>
#include <limits>
#include <map>
#include <string_view>
#include <tuple>
#include <unordered_map>

#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

namespace {

void addSubjects(TopStoriesContent& content, const PanelNews& news) {
    // All stories of the news, as the list of clusters shows them, also those before the span.
    const auto groups = groupStories(news, news.now - kTopStoriesSpan);
    std::unordered_map<std::string_view, const StoryGroup*> groupOf;
    for (const auto& group : groups) groupOf.emplace(group.first().story->id, &group);
    for (const auto& top : topStories(news)) {
        std::vector<PanelStory> stories;
        for (const auto* story : groupOf.at(top.first.storyID)->stories) stories.push_back(*story);
        content.subjects.push_back(clusterSummary(stories, news.now, news.corrections));
        content.stories += stories.size();
    }
}

void countFirsts(TopStoriesContent& content, const std::vector<Scoop>& scoops) {
    std::map<std::string, TopStoriesContent::Firsts> byOutlet;
    for (const auto& scoop : scoops) {
        auto& firsts = byOutlet[outletKey(*scoop.attribution.first)];
        if (firsts.times++ == 0) firsts.outlet = *scoop.attribution.first;
    }
    content.allFirsts = scoops.size();
    for (auto& [key, firsts] : byOutlet) content.firsts.push_back(std::move(firsts));
    // By name already.
    std::ranges::stable_sort(content.firsts, std::ranges::greater{},
                             &TopStoriesContent::Firsts::times);
    // A single further outlet takes no more room than "1 other".
    if (content.firsts.size() <= kMostFirsts + 1) return;
    content.otherOutlets = content.firsts.size() - kMostFirsts;
    content.firsts.resize(kMostFirsts);
    content.otherFirsts = content.allFirsts;
    for (const auto& firsts : content.firsts) content.otherFirsts -= firsts.times;
}

}  // namespace

TopStoriesContent topStoriesContent(const PanelNews& news) {
    TopStoriesContent content;
    addSubjects(content, news);
    auto scoops = kit::scoops(news, kFirstsSpan, std::numeric_limits<std::size_t>::max());
    countFirsts(content, scoops);
    const auto old = std::ranges::find_if(
        scoops, [&](const Scoop& scoop) { return scoop.at() < news.now - kScoopsSpan; });
    scoops.erase(old, scoops.end());
    if (scoops.size() > kMostScoops) scoops.resize(kMostScoops);
    content.scoops = std::move(scoops);
    return content;
}

}  // namespace kit
