#include "Tarnwick_Brell/CommandLine/StoryText.h"

#include "NewsroomKit/Editorial/Explanation.h"
#include "Tarnwick_Brell/CommandLine/TerminalText.h"

namespace brell {

using newsroom::StoryKind;

namespace {

/// The label was given when the story was fetched; the rules have changed since.
std::string olderRules(std::string_view label) {
    return std::string(label) + ": so said the rules when the story was fetched; today's differ.";
}

}  // namespace

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
        case StoryKind::podcast: return "Podcast: the item is an audio episode.";
        case StoryKind::video: return "Video: the item is a video.";
        case StoryKind::post:
            return "Post: the item comes from a social account, or has no headline of its own.";
        case StoryKind::coverage:
        case StoryKind::deal:
        case StoryKind::review:
        case StoryKind::roundup:
        case StoryKind::sponsored:
        case StoryKind::advertisement: break;
    }
    const auto decision = newsroom::StoryKindRules::explain(story.title, story.summary);
    if (decision.kind != story.kind) return olderRules(newsroom::label(story.kind));
    return newsroom::explanation(decision);
}

std::string sourcingReason(const newsroom::Story& story) {
    const auto decision =
        newsroom::SourcingRules::explain(story.title, story.summary, story.isAppleSource);
    if (decision.sourcing != story.sourcing) {
        const bool unlabeled = story.sourcing == newsroom::Sourcing::unlabeled;
        return olderRules(unlabeled ? "Unlabeled" : newsroom::label(story.sourcing));
    }
    return newsroom::explanation(decision);
}

}  // namespace brell
