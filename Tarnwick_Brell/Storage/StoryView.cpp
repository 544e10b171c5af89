#include "Tarnwick_Brell/Storage/StoryView.h"

#include <string>

#include "NewsroomKit/Stories/StoryShape.h"

namespace desk {

StoredStory StoryView::stored() const {
    const auto owned = [](const std::optional<std::string_view>& text) {
        return text ? std::optional<std::string>(*text) : std::nullopt;
    };
    StoredStory whole{.number = number,
                      .firstSeen = firstSeen,
                      .arrival = arrival,
                      .readAt = readAt,
                      .savedAt = savedAt};
    newsroom::Story& story = whole.story;
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
        story.credits =
            newsroom::decode<std::vector<newsroom::SourceCredit>>(newsroom::parseJSON(credits));
    }
    return whole;
}

}  // namespace desk
