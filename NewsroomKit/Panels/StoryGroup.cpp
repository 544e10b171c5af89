#include "NewsroomKit/Panels/StoryGroup.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <unordered_map>

#include "NewsroomKit/Attribution/TellingOutlet.h"

namespace kit {

namespace {

bool isEarlier(const PanelStory* a, const PanelStory* b) {
    return std::tie(a->story->publishedAt, a->story->id) <
           std::tie(b->story->publishedAt, b->story->id);
}

void order(StoryGroup& group) {
    std::sort(group.stories.begin(), group.stories.end(), isEarlier);
    std::set<std::string> seen;
    for (const auto* story : group.stories) {
        if (seen.insert(tellingOutletKey(*story->story)).second) group.outlets.push_back(story);
    }
}

}  // namespace

Sourcing StoryGroup::sourcing() const {
    Sourcing firmest = Sourcing::unlabeled;
    for (const auto* story : stories) firmest = std::min(firmest, story->story->sourcing);
    return firmest;
}

std::vector<StoryGroup> groupStories(const PanelNews& news, Instant earliest) {
    std::unordered_map<std::string_view, std::size_t> clusterOf;
    for (std::size_t i = 0; i < news.clusters.size(); ++i) {
        for (const auto& id : news.clusters[i].storyIDs) clusterOf.emplace(id, i);
    }
    std::vector<StoryGroup> groups(news.clusters.size());
    const Instant oldest =
        earliest > Instant::min() + kEarlierContext ? earliest - kEarlierContext : Instant::min();
    for (const auto& story : news.stories) {
        if (story.story->publishedAt < oldest) continue;
        const auto cluster = clusterOf.find(story.story->id);
        auto& group = cluster == clusterOf.end() ? groups.emplace_back() : groups[cluster->second];
        group.stories.push_back(&story);
    }
    std::erase_if(groups, [](const StoryGroup& group) { return group.stories.empty(); });
    for (auto& group : groups) order(group);
    std::erase_if(groups, [&](const StoryGroup& group) { return group.newest() < earliest; });
    std::sort(groups.begin(), groups.end(), [](const StoryGroup& a, const StoryGroup& b) {
        if (a.newest() != b.newest()) return a.newest() > b.newest();
        return a.first().story->id < b.first().story->id;
    });
    return groups;
}

Attribution attributionOf(const StoryGroup& group, const PanelNews& news) {
    std::vector<const Story*> stories;
    for (const auto* member : group.stories) stories.push_back(member->story);
    return attributionOf({.stories = stories, .corrections = news.corrections});
}

bool isKnownFirst(const Attribution& attribution, const Story& story) {
    return attribution.confidence != Attribution::Confidence::unclear &&
           attribution.story == story.id;
}

std::vector<StoryMention> outletMentions(const StoryGroup& group) {
    std::vector<StoryMention> mentions;
    for (const auto* story : group.outlets) mentions.push_back(StoryMention::of(*story));
    return mentions;
}

}  // namespace kit
