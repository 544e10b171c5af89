#include "NewsroomKit/Pages/PageSummary.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Pages/StatedDate.h"
#include "NewsroomKit/Pages/WordDiff.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// Words that turn a rule round, however short the change.
constexpr std::array<std::string_view, 14> heavyWords{
    "not",    "must",  "may",     "only",   "except",   "until",      "never",
    "longer", "shall", "require", "cannot", "required", "prohibited", "without"};

constexpr std::size_t heaviest = 1'000;

bool isHeavy(std::string_view word) {
    return turnsRules(word) || std::ranges::any_of(word, isASCIIDigit);
}

template <class Words>
bool anyHeavy(const Words& words, std::size_t begin, std::size_t end) {
    const auto first = words.begin() + static_cast<std::ptrdiff_t>(begin);
    return std::any_of(first, words.begin() + static_cast<std::ptrdiff_t>(end), isHeavy);
}

bool hasHeavyWords(const PageChange& change, const std::vector<PageBlock>& before,
                   const std::vector<PageBlock>& after) {
    if (change.kind != PageChange::Kind::changed) {
        const auto& block = change.after ? after[*change.after] : before[change.before.value()];
        const auto words = wordsOf(block.text);
        return block.kind == PageBlock::Kind::heading || anyHeavy(words, 0, words.size());
    }
    const auto& fresh = after[change.after.value()];
    if (fresh.kind == PageBlock::Kind::heading) return true;
    const auto diff = compareWords(before[change.before.value()].text, fresh.text);
    return std::ranges::any_of(diff.changes, [&](const WordChange& one) {
        return anyHeavy(diff.before, one.beforeBegin, one.beforeEnd) ||
               anyHeavy(diff.after, one.afterBegin, one.afterEnd);
    });
}

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

}  // namespace

bool turnsRules(std::string_view word) {
    const auto folded = lowercasedASCII(word);
    std::string_view letters = folded;
    while (!letters.empty() && !isASCIIAlphanumeric(letters.back())) letters.remove_suffix(1);
    while (!letters.empty() && !isASCIIAlphanumeric(letters.front())) letters.remove_prefix(1);
    return std::ranges::find(heavyWords, letters) != heavyWords.end();
}

PageSummary pageSummary(const std::vector<PageBlock>& before, const std::vector<PageBlock>& after) {
    using Kind = PageChange::Kind;
    auto diff = comparePages(before, after);
    PageSummary summary;
    summary.verdict = diff.verdict;
    std::vector<std::pair<std::size_t, PageChange>> weighed;
    for (auto& change : diff.changes) {
        if (change.kind == Kind::moved) {
            ++summary.moved;
        } else if (change.kind == Kind::links) {
            summary.links.push_back(std::move(change));
        } else if (change.words == 0) {
            summary.smallEdits.push_back(std::move(change));
        } else {
            const auto weight = std::min(change.words, heaviest - 1) +
                                (hasHeavyWords(change, before, after) ? heaviest : 0);
            weighed.emplace_back(weight, std::move(change));
        }
    }
    std::ranges::stable_sort(weighed, std::greater{}, &decltype(weighed)::value_type::first);
    for (auto& [weight, change] : weighed) summary.changes.push_back(std::move(change));
    summary.isDateOnly =
        !summary.changes.empty() &&
        std::ranges::all_of(summary.changes, [&](const PageChange& change) {
            return change.kind == Kind::changed &&
                   differInDateOnly(before[*change.before].text, after[*change.after].text);
        });
    return summary;
}

std::string changeCountText(const PageSummary& summary) {
    if (summary.isDateOnly) return "Only the date";
    if (!summary.changes.empty()) return counted(summary.changes.size(), "change", "changes");
    if (!summary.smallEdits.empty())
        return counted(summary.smallEdits.size(), "small edit", "small edits");
    if (!summary.links.empty())
        return counted(summary.links.size(), "link leads elsewhere", "links lead elsewhere");
    return counted(summary.moved, "block moved", "blocks moved");
}

std::string summarySentence(const PageSummary& summary) {
    if (summary.isDateOnly) return "The date changed, and no other text.";
    if (!summary.changes.empty())
        return fmt::format("{}. {}", changeCountText(summary), summary.changes.front().sentence);
    if (!summary.smallEdits.empty())
        return fmt::format("{}. {}", changeCountText(summary), summary.smallEdits.front().sentence);
    if (!summary.links.empty())
        return fmt::format("{}. {}", changeCountText(summary), summary.links.front().sentence);
    return changeCountText(summary) + ".";
}

}  // namespace kit
