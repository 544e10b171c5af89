#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/SourcingRules.h"
#include "NewsroomKit/Editorial/StoryKindRules.h"

namespace kit {

/// Both editorial labels of a story with their reasons.
struct StoryLabels {
    std::optional<KindDecision> kind;  ///< absent unless requested
    SourcingDecision sourcing;

    bool operator==(const StoryLabels&) const = default;
};

/// Gives the labels of StoryKindRules and SourcingRules, but normalises and scans the text only
/// once. `classifyKind` is for articles; other media have their kind already.
StoryLabels labelStory(std::string_view title, std::string_view summary, bool isAppleSource,
                       bool classifyKind);

}  // namespace kit
