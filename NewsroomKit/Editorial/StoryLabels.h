#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/SourcingRules.h"
#include "NewsroomKit/Editorial/StoryKindRules.h"

namespace kit {

/// Both editorial labels of a story with their reasons.
struct StoryLabels {
    std::optional<KindDecision> kind;  ///< absent when the kind was not asked for
    SourcingDecision sourcing;

    bool operator==(const StoryLabels&) const = default;
};

/// The same labels as StoryKindRules and SourcingRules give, with the story's text
/// normalised and read only once. `classifyKind` is for articles; other media have their
/// kind already.
StoryLabels labelStory(std::string_view title, std::string_view summary, bool isAppleSource,
                       bool classifyKind);

}  // namespace kit
