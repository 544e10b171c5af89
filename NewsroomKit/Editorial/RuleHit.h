#pragma once

#include <string_view>

#include "NewsroomKit/Editorial/PhraseTables.h"
#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// The phrase that decided a rule. Its texts live as long as the process.
struct RuleHit {
    enum class Where { title, summary, titleAndSummary, source, text };

    std::string_view table;   ///< the table's name for people, e.g. "deal phrases"
    std::string_view phrase;  ///< as the table has it, normalised; empty for a source
    Where where = Where::title;

    bool operator==(const RuleHit&) const = default;
};

/// titleAndSummary: a phrase that begins in the title and ends in the summary.
template <>
inline constexpr std::array<EnumRow<RuleHit::Where>, 5> enumTable<RuleHit::Where>{{
    {RuleHit::Where::title, "title", "headline"},
    {RuleHit::Where::summary, "summary", "excerpt"},
    {RuleHit::Where::titleAndSummary, "titleAndSummary", "headline and excerpt together"},
    {RuleHit::Where::source, "source", "source"},
    {RuleHit::Where::text, "text", "text"},
}};

/// The table's earliest phrase among `hits`; nothing when none occurred.
std::optional<RuleHit> ruleHit(PhraseTable table, const PhraseHits& hits, RuleHit::Where where);

}  // namespace kit
