#include "NewsroomKit/Panels/Brief.h"

#include <algorithm>
#include <set>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

namespace {

constexpr std::chrono::hours kWithoutLastLook{24};

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

std::string counted(std::size_t count, const std::string& one, const std::string& several) {
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

}  // namespace

BriefContent brief(const PanelNews& news, std::optional<Instant> since) {
    const auto fresh = newStories(news, since.value_or(news.now - kWithoutLastLook));
    BriefContent content{.since = since, .stories = fresh.size(), .apple = applePosts(fresh)};
    std::set<std::string> outlets;
    for (const auto& story : fresh) outlets.insert(outletKey(*story.story));
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

std::vector<BriefLine> briefLines(const BriefContent& content) {
    const std::string when = content.since ? " since your last look." : " in the last day.";
    if (content.isEmpty()) return {{.text = "Nothing new" + when}};
    std::vector<BriefLine> lines;
    lines.push_back({.text = counted(content.stories, "new story", "new stories") + " from " +
                             counted(content.outlets, "outlet", "outlets") + when});
    if (const auto& apple = content.apple) {
        const auto count = apple->count == 1
                               ? std::string("Apple posted: ")
                               : "Apple posted " + std::to_string(apple->count) + " times, last: ";
        lines.push_back({.text = count + apple->latest.title, .sources = {apple->latest}});
    }
    for (const auto& topic : content.topics) {
        lines.push_back({.text = topic.headline.title, .sources = topic.outlets});
    }
    return lines;
}

}  // namespace kit
