#include "Tarnwick_Brell/CommandLine/StoryText.h"

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

namespace cli {

using kit::StoryKind;

std::string outletLine(const kit::Story& story) {
    const auto destination = story.shownDestinationName();
    return printable(destination ? story.sourceName + " → " + *destination : story.sourceName);
}

std::string labelLine(const kit::Story& story) {
    std::string text;
    if (story.kind != StoryKind::coverage) text = kit::label(story.kind);
    const auto sourcing = kit::label(story.sourcing);
    if (!text.empty() && !sourcing.empty()) text += " · ";
    return text + std::string(sourcing);
}

boost::json::object storyRecord(const app::StoredStory& stored) {
    auto shown = stored.story;
    shown.link = kit::maskedLogins(shown.link);
    for (auto* address : {&shown.articleLink, &shown.imageURL}) {
        if (*address) *address = kit::maskedLogins(**address);
    }
    for (auto& credit : shown.credits) {
        if (credit.url) credit.url = kit::maskedLogins(*credit.url);
    }
    auto record = kit::encode(shown).get_object();
    record["read"] = stored.readAt.has_value();
    record["saved"] = stored.savedAt.has_value();
    record["firstSeen"] = kit::encode(stored.firstSeen);
    return record;
}

}  // namespace cli
