#include "Tarnwick_Brell/CommandLine/StoryText.h"

#include "NewsroomKit/Addresses/SecretMasking.h"
#include "NewsroomKit/Stories/StoryShape.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

namespace brell {

using newsroom::StoryKind;

std::string outletLine(const newsroom::Story& story) {
    const auto destination = story.shownDestinationName();
    return printable(destination ? story.sourceName + " → " + *destination : story.sourceName);
}

std::string labelLine(const newsroom::Story& story) {
    std::string text;
    if (story.kind != StoryKind::coverage) text = newsroom::label(story.kind);
    const auto sourcing = newsroom::label(story.sourcing);
    if (!text.empty() && !sourcing.empty()) text += " · ";
    return text + std::string(sourcing);
}

boost::json::object storyRecord(const desk::StoredStory& stored) {
    auto shown = stored.story;
    shown.link = newsroom::maskedLogins(shown.link);
    for (auto* address : {&shown.articleLink, &shown.imageURL}) {
        if (*address) *address = newsroom::maskedLogins(**address);
    }
    for (auto& credit : shown.credits) {
        if (credit.url) credit.url = newsroom::maskedLogins(*credit.url);
    }
    auto record = newsroom::encode(shown).get_object();
    record["read"] = stored.readAt.has_value();
    record["saved"] = stored.savedAt.has_value();
    record["firstSeen"] = newsroom::encode(stored.firstSeen);
    return record;
}

}  // namespace brell
