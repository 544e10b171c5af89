#include "NewsroomKit/Panels/PanelStory.h"

#include "NewsroomKit/Attribution/TellingOutlet.h"

namespace kit {

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
