#include "NewsroomKit/Panels/PagesContent.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <map>
#include <string_view>

#include <fmt/format.h>

#include "NewsroomKit/Pages/WordDiff.h"
#include "NewsroomKit/Panels/RowFilter.h"

namespace kit {
namespace {

constexpr std::chrono::hours changeIsNew{24};
/// Of what stays the same so many words are shown beside each change.
constexpr std::size_t wordsBesideChange = 16;

PageRow::State stateOf(const PageStatus& page) {
    if (!page.lookedAt) return PageRow::State::waiting;
    if (page.state.misses >= kMissesToTell) return PageRow::State::failing;
    if (page.state.candidate) return PageRow::State::checking;
    if (page.lastChange) return PageRow::State::changed;
    return page.state.rules == 0 ? PageRow::State::waiting : PageRow::State::same;
}

PageRow rowOfPage(const PageStatus& page, Instant now) {
    PageRow row;
    row.id = page.page.id;
    row.name = page.page.name;
    row.address = page.page.address;
    row.state = stateOf(page);
    row.lookedAt = page.lookedAt;
    row.nextLook = page.nextLook;
    row.leftOut = page.state.volatileBlocks;
    row.misses = static_cast<std::size_t>(page.state.misses);
    row.failingSince = page.state.missedSince;
    if (page.state.miss) row.problem = label(*page.state.miss);
    if (!page.lastChange) return row;
    row.changedAt = page.lastChange->seenAt;
    row.unchangedAt = page.lastChange->unchangedAt;
    row.change = page.lastChange->count;
    row.sentence = page.lastChange->sentence;
    row.isNew = now - page.lastChange->confirmedAt < changeIsNew;
    return row;
}

void addRun(std::vector<PageRun>& runs, PageRun::Kind kind,
            std::span<const std::string_view> words) {
    if (!words.empty()) runs.push_back({kind, fmt::format("{}", fmt::join(words, " "))});
}

/// Words that stay the same, without the middle of many. Those after the last change lose their
/// end.
void addSame(std::vector<PageRun>& runs, std::span<const std::string_view> words, bool isLast) {
    if (words.size() <= 2 * wordsBesideChange) return addRun(runs, PageRun::Kind::same, words);
    auto text = fmt::format("{} …", fmt::join(words.first(wordsBesideChange), " "));
    if (!isLast) text += fmt::format(" {}", fmt::join(words.last(wordsBesideChange), " "));
    runs.push_back({PageRun::Kind::same, std::move(text)});
}

enum class SameWords { shortened, whole };

std::vector<PageRun> runsOfWords(const WordDiff& diff, SameWords same) {
    const auto add = [&](std::vector<PageRun>& runs, std::span<const std::string_view> words,
                         bool isLast) {
        if (same == SameWords::whole) return addRun(runs, PageRun::Kind::same, words);
        addSame(runs, words, isLast);
    };
    std::vector<PageRun> runs;
    if (diff.isRewritten) {
        addRun(runs, PageRun::Kind::removed, diff.before);
        addRun(runs, PageRun::Kind::added, diff.after);
        return runs;
    }
    const std::span<const std::string_view> old(diff.before), fresh(diff.after);
    std::size_t at = 0;
    for (const auto& change : diff.changes) {
        add(runs, fresh.subspan(at, change.afterBegin - at), false);
        addRun(runs, PageRun::Kind::removed,
               old.subspan(change.beforeBegin, change.beforeEnd - change.beforeBegin));
        addRun(runs, PageRun::Kind::added,
               fresh.subspan(change.afterBegin, change.afterEnd - change.afterBegin));
        at = change.afterEnd;
    }
    add(runs, fresh.subspan(at), true);
    return runs;
}

/// "must → may" of the first words that were replaced and turn a rule round.
std::string turnIn(const WordDiff& diff) {
    constexpr std::size_t mostWords = 3;
    if (diff.isRewritten) return {};
    for (const auto& change : diff.changes) {
        const auto old = std::span(diff.before)
                             .subspan(change.beforeBegin, change.beforeEnd - change.beforeBegin);
        const auto fresh =
            std::span(diff.after).subspan(change.afterBegin, change.afterEnd - change.afterBegin);
        const bool isShort =
            !old.empty() && !fresh.empty() && old.size() <= mostWords && fresh.size() <= mostWords;
        if (!isShort) continue;
        if (std::ranges::any_of(old, turnsRules) || std::ranges::any_of(fresh, turnsRules))
            return fmt::format("{} → {}", fmt::join(old, " "), fmt::join(fresh, " "));
    }
    return {};
}

void addWordChanges(PageChangeRow& row, std::string_view before, std::string_view after,
                    SameWords same) {
    const auto diff = compareWords(before, after);
    row.runs = runsOfWords(diff, same);
    row.edits = diff.changes.size();
    row.turn = turnIn(diff);
}

PageChangeRow rowOfChange(const PageChange& change, const std::vector<PageBlock>& before,
                          const std::vector<PageBlock>& after,
                          SameWords same = SameWords::shortened) {
    const auto& block = change.after ? after[*change.after] : before[change.before.value()];
    PageChangeRow row;
    row.kind = change.kind;
    row.headings = block.headings;
    row.place = change.after.value_or(change.before.value_or(0));
    row.words = change.words;
    row.sentence = change.sentence;
    switch (change.kind) {
        case PageChange::Kind::changed:
            addWordChanges(row, before[*change.before].text, block.text, same);
            break;
        case PageChange::Kind::added: row.runs = {{PageRun::Kind::added, block.text}}; break;
        case PageChange::Kind::removed: row.runs = {{PageRun::Kind::removed, block.text}}; break;
        case PageChange::Kind::moved:
        case PageChange::Kind::links: break;
    }
    return row;
}

/// Where the blocks of the earlier text stand in the later one, by their places in both. Blocks
/// that no change names follow one another in the same order in both.
std::map<std::size_t, std::size_t> placesInLaterText(const PageDiff& diff, std::size_t before,
                                                     std::size_t after) {
    std::map<std::size_t, std::size_t> places;
    std::vector<bool> isOld(before), isFresh(after);
    for (const auto& change : diff.changes) {
        if (change.before) isOld[*change.before] = true;
        if (change.after) isFresh[*change.after] = true;
        if (change.before && change.after && change.kind != PageChange::Kind::moved)
            places[*change.before] = *change.after;
    }
    std::size_t to = 0;
    for (std::size_t from = 0; from < before; ++from) {
        if (isOld[from]) continue;
        while (to < after && isFresh[to]) ++to;
        if (to == after) break;
        places[from] = to++;
    }
    return places;
}

}  // namespace

std::vector<PageRow> pageRows(std::span<const PageStatus> pages, Instant now) {
    std::vector<PageRow> rows;
    for (const auto& page : pages) rows.push_back(rowOfPage(page, now));
    std::ranges::stable_sort(rows, std::ranges::greater{}, &PageRow::changedAt);
    return rows;
}

std::vector<PageRow> pageRows(std::span<const PageStatus> pages,
                              std::span<const std::string> addresses, Instant now) {
    auto rows = pageRows(pages, now);
    if (addresses.empty()) return rows;
    std::erase_if(rows, [&](const PageRow& row) {
        return std::ranges::find(addresses, row.address) == addresses.end();
    });
    return rows;
}

bool isIn(PageSubset subset, const PageRow& row) {
    switch (subset) {
        case PageSubset::all: return true;
        case PageSubset::changed: return row.isNew;
        case PageSubset::failing: return !row.problem.empty();
    }
    return true;
}

std::vector<PageRow> filteredPages(std::vector<PageRow> rows, PageSubset subset,
                                   std::string_view words) {
    const RowFilter filter(words);
    std::erase_if(rows, [&](const PageRow& row) {
        return !isIn(subset, row) || !filter.matches({row.name, row.address, row.sentence});
    });
    return rows;
}

PageComparison pageComparison(const std::vector<PageBlock>& before,
                              const std::vector<PageBlock>& after) {
    PageComparison comparison;
    comparison.summary = pageSummary(before, after);
    const auto addRows = [&](const std::vector<PageChange>& changes,
                             std::vector<PageChangeRow>& rows) {
        for (const auto& change : changes) rows.push_back(rowOfChange(change, before, after));
    };
    addRows(comparison.summary.changes, comparison.changes);
    addRows(comparison.summary.smallEdits, comparison.small);
    addRows(comparison.summary.links, comparison.links);
    return comparison;
}

std::vector<PageChangeRow> inPageOrder(std::vector<PageChangeRow> changes) {
    std::ranges::stable_sort(changes, {}, &PageChangeRow::place);
    return changes;
}

std::vector<PageChangeRow> filteredChanges(std::vector<PageChangeRow> changes,
                                           PageChangeFilter filter) {
    if (filter == PageChangeFilter::all) return changes;
    const auto wanted =
        filter == PageChangeFilter::additions ? PageRun::Kind::added : PageRun::Kind::removed;
    std::erase_if(changes, [&](const PageChangeRow& change) {
        return std::ranges::find(change.runs, wanted, &PageRun::kind) == change.runs.end();
    });
    return changes;
}

std::vector<PageChangeRow> wholeText(const std::vector<PageBlock>& before,
                                     const std::vector<PageBlock>& after) {
    const auto diff = comparePages(before, after);
    const auto places = placesInLaterText(diff, before.size(), after.size());
    // The rows behind each block of the later text; those of index 0 stand before the first one.
    std::vector<std::vector<PageChangeRow>> rows(after.size() + 1);
    for (std::size_t place = 0; place < after.size(); ++place) {
        PageChangeRow row;
        row.headings = after[place].headings;
        row.place = place;
        row.runs = {{PageRun::Kind::same, after[place].text}};
        rows[place + 1].push_back(std::move(row));
    }
    std::size_t behind = 0;
    auto next = places.begin();
    const auto rowBehind = [&](std::size_t earlierPlace) {
        for (; next != places.end() && next->first < earlierPlace; ++next)
            behind = next->second + 1;
        return behind;
    };
    auto changes = diff.changes;
    std::erase_if(changes, [](const PageChange& change) {
        return change.kind == PageChange::Kind::moved || change.kind == PageChange::Kind::links;
    });
    for (const auto& change : changes) {
        if (change.after)
            rows[*change.after + 1][0] = rowOfChange(change, before, after, SameWords::whole);
    }
    std::ranges::stable_sort(changes, {}, &PageChange::before);
    for (const auto& change : changes) {
        if (!change.after)
            rows[rowBehind(*change.before)].push_back(rowOfChange(change, before, after));
    }
    std::vector<PageChangeRow> text;
    for (auto& group : rows) std::ranges::move(group, std::back_inserter(text));
    return text;
}

}  // namespace kit
