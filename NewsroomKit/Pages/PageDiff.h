#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Pages/PageBlock.h"
#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// One change between two states of a page.
struct PageChange {
    enum class Kind {
        changed,
        added,
        removed,
        moved,  ///< the same text elsewhere
        links,  ///< the same text, with links that lead elsewhere
    };

    Kind kind = Kind::changed;
    std::optional<std::size_t> before;  ///< the place of the block in the earlier state
    std::optional<std::size_t> after;
    std::size_t words = 0;  ///< inserted and deleted ones
    std::string sentence;
};

template <>
inline constexpr std::array<EnumRow<PageChange::Kind>, 5> enumTable<PageChange::Kind>{{
    {PageChange::Kind::changed, "changed", "Changed"},
    {PageChange::Kind::added, "added", "Added"},
    {PageChange::Kind::removed, "removed", "Removed"},
    {PageChange::Kind::moved, "moved", "Moved"},
    {PageChange::Kind::links, "links", "Links changed"},
}};

struct PageDiff {
    enum class Verdict {
        same,   ///< a reader sees no difference; targets of links may differ
        order,  ///< the same blocks in another order
        changed,
    };

    Verdict verdict = Verdict::same;
    /// In the order of the later state, removed blocks where they stood.
    std::vector<PageChange> changes;
};

template <>
inline constexpr std::array<EnumRow<PageDiff::Verdict>, 3> enumTable<PageDiff::Verdict>{{
    {PageDiff::Verdict::same, "same", "Unchanged"},
    {PageDiff::Verdict::order, "order", "Other order"},
    {PageDiff::Verdict::changed, "changed", "Changed"},
}};

PageDiff comparePages(const std::vector<PageBlock>& before, const std::vector<PageBlock>& after);

}  // namespace kit
