#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Pages/FollowedPage.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// When a page was looked at, and is to be looked at next.
struct PageLooks {
    std::optional<kit::Instant> last{};
    std::optional<kit::Instant> next{};
};

/// What the watch of pages remembers, by their addresses, and the texts that they had.
class PageHistory {
public:
    explicit PageHistory(Database& database) : database_(database) {}

    PageLooks looks(std::string_view address);
    /// Nothing before the first look, also when a newer version has written it.
    std::optional<kit::PageWatchState> state(std::string_view address);
    /// With its texts, which are read with the present rules.
    kit::PageWatch watch(std::string_view address);

    // Call these within a transaction.
    void storeState(std::string_view address, const kit::PageWatchState& state, PageLooks looks);
    /// With its texts; storeState comes first.
    void storeTexts(std::string_view address, const kit::PageWatch& watch);
    /// Drops what is older than two years or more than 200 revisions of the page; the last two
    /// stay.
    void add(const kit::PageRevision& revision, const std::vector<kit::PageBlock>& blocks,
             std::string_view html);

    /// The last one first.
    std::vector<kit::PageRevision> revisions(std::string_view address, std::size_t most);
    /// The last one that changed something.
    std::optional<kit::PageRevision> lastChange(std::string_view address);
    std::vector<kit::PageBlock> blocks(std::int64_t revision);

private:
    void applyRulesTo(kit::PageWatch& watch, std::string_view address);
    void dropOld(std::string_view address, kit::Instant now);

    Database& database_;
};

}  // namespace app
