#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/PhraseTables.h"
#include "NewsroomKit/Stories/Sourcing.h"

namespace kit {

class StoryScan;

/// How a story is sourced and the phrases that say so.
struct SourcingDecision {
    Sourcing sourcing = Sourcing::unlabeled;
    /// Nothing for an unlabeled story; the source itself for a story from Apple.
    std::optional<RuleHit> why{};
    /// The verb of speaking that a spokesperson needs in order to count.
    std::optional<RuleHit> speech{};
    /// The phrase that reports a confirmed rumor and so disables the rumor phrases.
    std::optional<RuleHit> rumorsTurnedOffBy{};

    bool operator==(const SourcingDecision&) const = default;
};

/// How firmly a story is sourced, from its headline and the opening of its excerpt. The
/// headline outranks the excerpt, a rumor outranks a report, and a report outranks what
/// Apple says.
namespace SourcingRules {

Sourcing classify(std::string_view title, std::string_view summary, bool isAppleSource);
SourcingDecision explain(std::string_view title, std::string_view summary, bool isAppleSource);
/// Explains a story from any source but Apple's own.
SourcingDecision explain(const StoryScan& scan);
/// Explains a story from one of Apple's own sources.
SourcingDecision explainAppleSource();

}  // namespace SourcingRules

}  // namespace kit
