#include "NewsroomKit/Editorial/LabelReasons.h"

#include <fmt/format.h>

namespace kit {

namespace {

std::string says(const RuleHit& hit) {
    const bool both = hit.where == RuleHit::Where::titleAndSummary;
    return fmt::format("the {} {} “{}”", label(hit.where), both ? "say" : "says", hit.phrase);
}

std::string reason(const SourcingDecision& decision) {
    if (!decision.why) {
        return "neither the headline nor the excerpt's opening says how it is sourced";
    }
    if (decision.why->where == RuleHit::Where::source) return "it comes from Apple itself";
    if (decision.speech) {
        return fmt::format("the {} names “{}” and says “{}”", label(decision.why->where),
                           decision.why->phrase, decision.speech->phrase);
    }
    return says(*decision.why);
}

std::string olderRules(std::string_view label) {
    return std::string(label) + ": so said the rules when the story was fetched; today's differ.";
}

}  // namespace

std::string explanation(const KindDecision& decision) {
    const auto name = label(decision.kind);
    if (!decision.why) return fmt::format("{}: the headline speaks of no other kind.", name);
    const auto* effect =
        decision.kind == StoryKind::coverage ? ", which rules out the other kinds" : "";
    return fmt::format("{}: {}{}.", name, says(*decision.why), effect);
}

std::string explanation(const SourcingDecision& decision) {
    const bool labeled = decision.sourcing != Sourcing::unlabeled;
    std::string turnedOff;
    if (const auto& hit = decision.rumorsTurnedOffBy) {
        turnedOff = fmt::format(" Rumor phrases do not count, because {}.", says(*hit));
    }
    return fmt::format("{}: {}.{}", labeled ? label(decision.sourcing) : "Unlabeled",
                       reason(decision), turnedOff);
}

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
