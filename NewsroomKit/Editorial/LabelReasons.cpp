#include "NewsroomKit/Editorial/LabelReasons.h"

#include "NewsroomKit/Editorial/Explanation.h"

namespace kit {

namespace {

std::string olderRules(std::string_view label) {
    return std::string(label) + ": so said the rules when the story was fetched; today's differ.";
}

}  // namespace

std::string kindReason(const Story& story) {
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
    const auto decision = StoryKindRules::explain(story.title, story.summary);
    if (decision.kind != story.kind) return olderRules(label(story.kind));
    return explanation(decision);
}

std::string sourcingReason(const Story& story) {
    const auto decision = SourcingRules::explain(story.title, story.summary, story.isAppleSource);
    if (decision.sourcing != story.sourcing) {
        const bool isUnlabeled = story.sourcing == Sourcing::unlabeled;
        return olderRules(isUnlabeled ? "Unlabeled" : label(story.sourcing));
    }
    return explanation(decision);
}

}  // namespace kit
