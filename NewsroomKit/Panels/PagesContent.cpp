#include "NewsroomKit/Panels/PagesContent.h"

#include <algorithm>
#include <chrono>
#include <string_view>

#include <fmt/format.h>

#include "NewsroomKit/Pages/WordDiff.h"

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

std::vector<PageRun> runsOfWords(std::string_view before, std::string_view after) {
    const auto diff = compareWords(before, after);
    std::vector<PageRun> runs;
    if (diff.isRewritten) {
        addRun(runs, PageRun::Kind::removed, diff.before);
        addRun(runs, PageRun::Kind::added, diff.after);
        return runs;
    }
    const std::span<const std::string_view> old(diff.before), fresh(diff.after);
    std::size_t at = 0;
    for (const auto& change : diff.changes) {
        addSame(runs, fresh.subspan(at, change.afterBegin - at), false);
        addRun(runs, PageRun::Kind::removed,
               old.subspan(change.beforeBegin, change.beforeEnd - change.beforeBegin));
        addRun(runs, PageRun::Kind::added,
               fresh.subspan(change.afterBegin, change.afterEnd - change.afterBegin));
        at = change.afterEnd;
    }
    addSame(runs, fresh.subspan(at), true);
    return runs;
}

PageChangeRow rowOfChange(const PageChange& change, const std::vector<PageBlock>& before,
                          const std::vector<PageBlock>& after) {
    const auto& block = change.after ? after[*change.after] : before[change.before.value()];
    PageChangeRow row;
    row.kind = change.kind;
    row.headings = block.headings;
    row.place = change.after.value_or(change.before.value_or(0));
    row.words = change.words;
    row.sentence = change.sentence;
    switch (change.kind) {
        case PageChange::Kind::changed:
            row.runs = runsOfWords(before[*change.before].text, block.text);
            break;
        case PageChange::Kind::added: row.runs = {{PageRun::Kind::added, block.text}}; break;
        case PageChange::Kind::removed: row.runs = {{PageRun::Kind::removed, block.text}}; break;
        case PageChange::Kind::moved:
        case PageChange::Kind::links: break;
    }
    return row;
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

}  // namespace kit
