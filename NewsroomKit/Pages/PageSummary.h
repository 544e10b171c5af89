#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Pages/PageDiff.h"

namespace kit {

/// What changed on a page, for people: what weighs most comes first, what weighs nothing is
/// counted.
struct PageSummary {
    PageDiff::Verdict verdict = PageDiff::Verdict::same;
    /// Without moved blocks, links and small edits.
    std::vector<PageChange> changes;
    std::vector<PageChange> smallEdits;  ///< of punctuation
    std::vector<PageChange> links;       ///< the same words lead elsewhere
    std::size_t moved = 0;
    bool isDateOnly = false;  ///< only the date of the last change that the page states
};

PageSummary pageSummary(const std::vector<PageBlock>& before, const std::vector<PageBlock>& after);

/// Whether the word turns a rule round, however short the change: "not", "must", "may", "only".
bool turnsRules(std::string_view word);

/// "9 changes", "1 change", "Only the date", "3 small edits".
std::string changeCountText(const PageSummary& summary);

/// The count, and the heaviest change in a sentence.
std::string summarySentence(const PageSummary& summary);

}  // namespace kit
