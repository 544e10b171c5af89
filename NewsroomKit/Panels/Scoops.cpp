#include "NewsroomKit/Panels/Scoops.h"

#include <algorithm>
#include <chrono>

#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Clusters/HeadlineGenre.h"
#include "NewsroomKit/Editorial/AppleTopic.h"
#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

namespace {

const PanelStory& shownStory(const StoryGroup& group, const Attribution& attribution) {
    for (const auto* story : group.stories) {
        if (attribution.story == story->story->id) return *story;
    }
    return group.first();
}

/// One outlet that comes back to a subject a day later has not followed anybody.
bool isFollowed(const Attribution& attribution, std::size_t followers) {
    constexpr std::chrono::seconds longest = std::chrono::hours(12);
    return followers > 1 || attribution.creditedBy > 0 || !attribution.lead ||
           *attribution.lead <= longest.count();
}

/// A review, a roundup of other news and news of other companies are nobody's scoop here.
bool canBeScoop(const Story& story) {
    return AppleTopic::matches(story.title) && story.kind != StoryKind::review &&
           headlineGenre(story.title, story.kind) == HeadlineGenre::news;
}

}  // namespace

std::vector<Scoop> scoops(const PanelNews& news, std::chrono::days span, std::size_t most) {
    const Instant earliest = news.now - span;
    std::vector<Scoop> scoops;
    for (const auto& group : groupStories(news, earliest)) {
        if (group.outlets.size() < 2) continue;
        auto attribution = attributionOf(group, news);
        if (!attribution.scoop) continue;
        const auto& story = shownStory(group, attribution);
        if (!canBeScoop(*story.story)) continue;
        const auto first = outletKey(*attribution.first);
        const auto others = std::ranges::count_if(group.outlets, [&](const auto* outlet) {
            return tellingOutletKey(*outlet->story) != first;
        });
        if (!isFollowed(attribution, static_cast<std::size_t>(others))) continue;
        Scoop scoop{.story = StoryMention::of(story),
                    .attribution = std::move(attribution),
                    .followers = static_cast<std::size_t>(others)};
        if (scoop.at() >= earliest) scoops.push_back(std::move(scoop));
    }
    std::ranges::stable_sort(scoops, std::ranges::greater{}, &Scoop::at);
    if (scoops.size() > most) scoops.resize(most);
    return scoops;
}

}  // namespace kit
