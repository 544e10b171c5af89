#include "Tarnwick_Brell/CommandLine/StoryText.h"

#include "NewsroomKit/Editorial/Explanation.h"
#include "Tarnwick_Brell/CommandLine/TerminalText.h"

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

std::string kindReason(const newsroom::Story& story) {
    switch (story.kind) {
        case StoryKind::podcast: return "Podcast: the item carries an audio file.";
        case StoryKind::video: return "Video: the item is a video.";
        case StoryKind::post: return "Post: the item comes from a social account.";
        case StoryKind::coverage:
        case StoryKind::deal:
        case StoryKind::review:
        case StoryKind::roundup:
        case StoryKind::sponsored:
        case StoryKind::advertisement: break;
    }
    return newsroom::explanation(newsroom::StoryKindRules::explain(story.title, story.summary));
}

std::string sourcingReason(const newsroom::Story& story) {
    return newsroom::explanation(
        newsroom::SourcingRules::explain(story.title, story.summary, story.isAppleSource));
}

}  // namespace brell
