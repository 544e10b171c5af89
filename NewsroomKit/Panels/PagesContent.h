#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Pages/FollowedPage.h"
#include "NewsroomKit/Pages/PageSummary.h"

namespace kit {

/// A followed page in a list.
struct PageRow {
    enum class State {
        waiting,  ///< not looked at yet
        same,     ///< has not changed since the first look
        changed,
        checking,  ///< differs, and the look that decides is near
        failing    ///< could not be read several times in a row
    };

    std::string id;  ///< empty for one that only panels follow
    std::string name;
    std::string address;
    State state = State::waiting;
    bool isNew = false;                    ///< changed within the last day
    std::optional<Instant> changedAt{};    ///< when the last change was noticed
    std::optional<Instant> unchangedAt{};  ///< when the text before it was last seen
    std::string change;                    ///< "9 changes" of the last change
    std::string sentence;                  ///< the same with the heaviest change
    std::string problem;     ///< why it could not be read the last time; empty when it could
    std::size_t misses = 0;  ///< in a row
    std::optional<Instant> failingSince{};
    std::optional<Instant> lookedAt{};
    std::optional<Instant> nextLook{};
    std::vector<VolatileBlock> leftOut{};  ///< since they differ at each fetch

    bool operator==(const PageRow&) const = default;
};

template <>
inline constexpr std::array<EnumRow<PageRow::State>, 5> enumTable<PageRow::State>{{
    {PageRow::State::waiting, "waiting", "Not looked at yet"},
    {PageRow::State::same, "same", "Unchanged"},
    {PageRow::State::changed, "changed", "Changed"},
    {PageRow::State::checking, "checking", "Being checked"},
    {PageRow::State::failing, "failing", "Failing"},
}};

/// The last changed first; those that never changed stay in their order behind them.
std::vector<PageRow> pageRows(std::span<const PageStatus> pages, Instant now);

/// The rows of a panel: of the addresses that it follows, of all pages when it names none.
std::vector<PageRow> pageRows(std::span<const PageStatus> pages,
                              std::span<const std::string> addresses, Instant now);

/// Which followed pages a list has.
enum class PageSubset { all, changed, failing };

template <>
inline constexpr std::array<EnumRow<PageSubset>, 3> enumTable<PageSubset>{{
    {PageSubset::all, "all", "All"},
    {PageSubset::changed, "changed", "Changed"},
    {PageSubset::failing, "failing", "Failing"},
}};

/// Whether the page is one of them: a page that changed within the last day, or could not be read.
bool isIn(PageSubset subset, const PageRow& row);

/// The pages with all of these words in their name, their address or their last change, whatever
/// the letter case.
std::vector<PageRow> filteredPages(std::vector<PageRow> rows, PageSubset subset,
                                   std::string_view words);

/// A part of a text that both revisions have, or one of them.
struct PageRun {
    enum class Kind { same, removed, added };

    Kind kind = Kind::same;
    std::string text;  ///< words parted by spaces; "…" for the middle of many that are the same

    bool operator==(const PageRun&) const = default;
};

template <>
inline constexpr std::array<EnumRow<PageRun::Kind>, 3> enumTable<PageRun::Kind>{{
    {PageRun::Kind::same, "same", "Unchanged"},
    {PageRun::Kind::removed, "removed", "Removed"},
    {PageRun::Kind::added, "added", "Added"},
}};

/// A change, word by word.
struct PageChangeRow {
    PageChange::Kind kind = PageChange::Kind::changed;
    std::vector<std::string> headings;  ///< under which it stands, the outermost first
    std::size_t place = 0;              ///< in the page's order
    std::size_t words = 0;
    std::string sentence;
    std::vector<PageRun> runs;  ///< empty for links
    std::size_t edits = 0;      ///< passages that changed
    /// "must → may", where words were replaced that turn a rule round; empty otherwise.
    std::string turn;
};

/// Two revisions of a page.
struct PageComparison {
    PageSummary summary;
    std::vector<PageChangeRow> changes;  ///< the heaviest first
    std::vector<PageChangeRow> small;    ///< edits of punctuation
    std::vector<PageChangeRow> links;
};

PageComparison pageComparison(const std::vector<PageBlock>& before,
                              const std::vector<PageBlock>& after);

/// The changes as they stand in the page.
std::vector<PageChangeRow> inPageOrder(std::vector<PageChangeRow> changes);

/// Which changes are shown.
enum class PageChangeFilter { all, additions, removals };

template <>
inline constexpr std::array<EnumRow<PageChangeFilter>, 3> enumTable<PageChangeFilter>{{
    {PageChangeFilter::all, "all", "All changes"},
    {PageChangeFilter::additions, "additions", "Additions"},
    {PageChangeFilter::removals, "removals", "Removals"},
}};

/// The changes that add words, or that take some away.
std::vector<PageChangeRow> filteredChanges(std::vector<PageChangeRow> changes,
                                           PageChangeFilter filter);

/// The whole later text, block by block, with what changed in it and what was removed where it
/// stood.
std::vector<PageChangeRow> wholeText(const std::vector<PageBlock>& before,
                                     const std::vector<PageBlock>& after);

}  // namespace kit
