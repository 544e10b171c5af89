#include "Tarnwick_Brell/Storage/Tables/StoryView.h"

#include <string>

#include "NewsroomKit/Stories/StoryJSON.h"

namespace app {

StoredStory StoryView::stored() const {
    const auto owned = [](const std::optional<std::string_view>& text) {
        return text ? std::optional<std::string>(*text) : std::nullopt;
    };
    StoredStory whole{.number = number,
                      .firstSeen = firstSeen,
                      .arrival = arrival,
                      .readAt = readAt,
                      .savedAt = savedAt};
    kit::Story& story = whole.story;
    story.id = id;
    story.link = link;
    story.title = title;
    story.summary = summary;
    story.author = owned(author);
    story.publishedAt = publishedAt;
    story.imageURL = owned(imageURL);
    story.sourceID = sourceID;
    story.sourceName = sourceName;
    story.destinationName = owned(destinationName);
    story.isAppleSource = isAppleSource;
    story.kind = kind;
    story.sourcing = sourcing;
    story.wordpressID = wordpressID;
    story.articleLink = owned(articleLink);
    if (!credits.empty()) {
        story.credits = kit::decode<std::vector<kit::SourceCredit>>(kit::parseJSON(credits));
    }
    return whole;
}

}  // namespace app
