#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/PhraseTables.h"
#include "NewsroomKit/Stories/StoryKind.h"

namespace kit {

class StoryScan;

/// A story's kind and the phrase that gave it. Coverage has a phrase only when an
/// exclusion kept the story from being anything else.
struct KindDecision {
    StoryKind kind = StoryKind::coverage;
    std::optional<RuleHit> why{};

    bool operator==(const KindDecision&) const = default;
};

/// Derives the kind of an article from its headline. Business news about deals, reviews and
/// advertising is recognised by headline and excerpt together and stays coverage. Only for
/// articles: podcasts, videos and posts have their kind already.
namespace StoryKindRules {

StoryKind classify(std::string_view title, std::string_view summary);
KindDecision explain(std::string_view title, std::string_view summary);
KindDecision explain(const StoryScan& scan);

}  // namespace StoryKindRules

}  // namespace kit
