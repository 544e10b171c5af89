#include "NewsroomKit/Editorial/StoryKindRules.h"

#include <utility>

#include "NewsroomKit/Editorial/StoryScan.h"

namespace kit {

namespace {

/// The first table that matches gives the kind: "Deal roundup" is a deal, "Sponsored
/// review" a review.
constexpr std::pair<PhraseTable, StoryKind> kindsInOrder[] = {
    {PhraseTable::deal, StoryKind::deal},
    {PhraseTable::review, StoryKind::review},
    {PhraseTable::roundup, StoryKind::roundup},
    {PhraseTable::sponsored, StoryKind::sponsored},
    {PhraseTable::advertisement, StoryKind::advertisement},
};

}  // namespace

StoryKind StoryKindRules::classify(std::string_view title, std::string_view summary) {
    return explain(title, summary).kind;
}

KindDecision StoryKindRules::explain(std::string_view title, std::string_view summary) {
    return explain(StoryScan(title, summary));
}

KindDecision StoryKindRules::explain(const StoryScan& scan) {
    if (scan.exclusion()) return {.kind = StoryKind::coverage, .why = scan.exclusion()};
    for (const auto& [table, kind] : kindsInOrder) {
        if (auto hit = ruleHit(table, scan.title(), RuleHit::Where::title)) {
            return {.kind = kind, .why = hit};
        }
    }
    return {.kind = StoryKind::coverage, .why = std::nullopt};
}

}  // namespace kit
