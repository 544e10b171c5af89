#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"
#include "Tarnwick_Brell/Storage/Tables/StoryView.h"

namespace app {

/// A headline that a story no longer has.
struct EarlierWording {
    std::string title{};
    kit::Instant replacedAt{};
};

class CorrectionTable;

/// The stories of the library; StoryMerge adds to them. Whoever reads one here has it with the
/// user's corrections; the rows keep what the rules say.
class StoryTable {
public:
    StoryTable(Database& database, CorrectionTable& corrections)
        : database_(database), corrections_(corrections) {}

    using Visitor = std::function<bool(const StoredStory&)>;

    /// Stories in the order of the wire (newest first), until `visit` says false.
    void eachInWireOrder(std::optional<kit::Instant> since, const Visitor& visit);

    /// The same without copies: a view is valid during its visit.
    void eachViewInWireOrder(std::optional<kit::Instant> since,
                             const std::function<bool(const StoryView&)>& visit);

    /// Stories that were added or revised, or whose marks changed, after that stamp of
    /// DeskState; in no order.
    void eachChangedAfter(std::int64_t stamp, const Visitor& visit);

    /// Stories whose id begins with `prefix`, at most `limit`; an exact id comes alone.
    std::vector<StoredStory> findByID(std::string_view prefix, std::size_t limit);
    std::optional<StoredStory> findByNumber(std::int64_t number);

    /// What the story's headline was before, by the first time that each gave way.
    std::vector<EarlierWording> earlierWordings(std::int64_t number);

    /// Links of stories with that headline which were published within `span` of `around`, a
    /// story's article before its own link.
    std::vector<std::string> linksOfHeadline(std::string_view title, kit::Instant around,
                                             kit::Instant::duration span);

    /// Stores the article behind a story's redirect link. `stamp` is DeskState's for the
    /// transaction.
    void setArticleLink(std::int64_t number, std::string_view link, std::int64_t stamp);

    /// Stores what the page of a story credits beside its feed. The story when that changed it,
    /// without the user's corrections. `stamp` is DeskState's for the transaction.
    std::optional<StoredStory> addCredits(std::string_view storyID,
                                          const std::vector<kit::SourceCredit>& ofPage,
                                          std::int64_t stamp);

    /// As the column holds them.
    static std::string creditsText(const std::vector<kit::SourceCredit>& credits);

    static std::size_t countIn(Database& database);
    std::size_t count() { return countIn(database_); }

    /// Drops what was published before the moment, except what is saved. Returns the numbers
    /// of what went. Undated stories are remembered for as long as their feed brings them, and
    /// a season more. The marks of dropped stories become pending (see PendingMarks.h).
    std::vector<std::int64_t> dropPublishedBefore(kit::Instant cutoff, kit::Instant now);

    /// Drops the oldest that are not saved until at most `ceiling` stories are left.
    std::vector<std::int64_t> dropBeyond(std::size_t ceiling, kit::Instant now);

    /// What the rules say of a story, without the user's corrections.
    static std::optional<StoredStory> uncorrectedIn(Database& database, std::int64_t number);
    std::optional<StoredStory> uncorrected(std::int64_t number) {
        return uncorrectedIn(database_, number);
    }

    /// What a select of whole stories begins with, for rows that `read` understands; stories
    /// are named "s" in it, their marks "m".
    static std::string_view selection();
    StoredStory read(const Statement& row);

private:
    std::vector<std::int64_t> drop(const std::string& condition, std::int64_t parameter,
                                   kit::Instant now);

    static StoryView view(const Statement& row);

    Database& database_;
    CorrectionTable& corrections_;
};

}  // namespace app
