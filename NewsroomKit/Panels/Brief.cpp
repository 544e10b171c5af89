#include "NewsroomKit/Panels/Brief.h"

#include <algorithm>
#include <set>

#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

namespace {

constexpr std::chrono::hours kWithoutLastLook{24};
constexpr std::chrono::days kLongestAbsence{30};

std::vector<PanelStory> newStories(const PanelNews& news, Instant since) {
    std::vector<PanelStory> fresh;
    for (const auto& story : news.stories) {
        const bool isLate = story.story->publishedAt < since - kBriefLateness;
        if (story.firstSeen > since && !isLate) fresh.push_back(story);
    }
    return fresh;
}

std::optional<BriefContent::ApplePosts> applePosts(const std::vector<PanelStory>& stories) {
    const PanelStory* latest = nullptr;
    std::size_t count = 0;
    for (const auto& story : stories) {
        if (!story.story->isAppleSource) continue;
        ++count;
        if (!latest || story.story->publishedAt > latest->story->publishedAt) latest = &story;
    }
    if (!latest) return std::nullopt;
    return BriefContent::ApplePosts{.count = count, .latest = StoryMention::of(*latest)};
}

bool isApplesAlone(const StoryGroup& group) {
    return std::all_of(group.stories.begin(), group.stories.end(),
                       [](const auto* story) { return story->story->isAppleSource; });
}

bool leads(const StoryGroup& a, const StoryGroup& b) {
    if (a.outlets.size() != b.outlets.size()) return a.outlets.size() > b.outlets.size();
    return a.sourcing() < b.sourcing();
}

}  // namespace

Instant briefStart(std::optional<Instant> lastLook, Instant now) {
    return std::max(lastLook.value_or(now - kWithoutLastLook), now - kLongestAbsence);
}

BriefContent brief(const PanelNews& news, std::optional<Instant> lastLook) {
    const auto start = briefStart(lastLook, news.now);
    const auto fresh = newStories(news, start);
    BriefContent content{.stories = fresh.size(), .apple = applePosts(fresh)};
    if (lastLook) content.since = start;
    std::set<std::string> outlets;
    for (const auto& story : fresh) outlets.insert(tellingOutletKey(*story.story));
    content.outlets = outlets.size();

    auto groups = groupStories({.stories = fresh, .clusters = news.clusters, .now = news.now},
                               Instant::min());
    std::erase_if(groups, isApplesAlone);
    // Newest first already.
    std::stable_sort(groups.begin(), groups.end(), leads);
    if (groups.size() > kMostTopics) groups.resize(kMostTopics);
    for (const auto& group : groups) {
        content.topics.push_back({.headline = StoryMention::of(group.first()),
                                  .outlets = outletMentions(group),
                                  .sourcing = group.sourcing()});
    }
    return content;
}

std::vector<BriefItem> briefItems(const BriefContent& content,
                                  const std::vector<TrackerChange>& changes) {
    std::vector<BriefItem> others(changes.begin(), changes.end());
    if (content.apple) others.emplace_back(*content.apple);
    std::vector<BriefItem> items;
    for (std::size_t i = 0; i < std::max(content.topics.size(), others.size()); ++i) {
        if (i < content.topics.size()) items.emplace_back(content.topics[i]);
        if (i < others.size()) items.push_back(others[i]);
    }
    return items;
}

}  // namespace kit
