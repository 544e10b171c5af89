#include "NewsroomKit/Panels/PanelStory.h"

#include "NewsroomKit/Attribution/TellingOutlet.h"

namespace kit {

std::vector<const Story*> storiesOf(const PanelNews& news) {
    std::vector<const Story*> stories;
    stories.reserve(news.stories.size());
    for (const auto& story : news.stories) stories.push_back(story.story);
    return stories;
}

std::vector<std::vector<std::string>> groupsOf(const PanelNews& news) {
    std::vector<std::vector<std::string>> groups;
    groups.reserve(news.clusters.size());
    for (const auto& cluster : news.clusters) groups.push_back(cluster.storyIDs);
    return groups;
}

StoryMention StoryMention::of(const PanelStory& story) {
    return {.storyID = story.story->id,
            .title = story.story->title,
            .outlet = tellingOutlet(*story.story),
            .publishedAt = story.story->publishedAt,
            .sourcing = story.story->sourcing,
            .isRead = story.isRead};
}

std::string outletOf(const Story& story) {
    return story.shownDestinationName().value_or(story.sourceName);
}

}  // namespace kit
