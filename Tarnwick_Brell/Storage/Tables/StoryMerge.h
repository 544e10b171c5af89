#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Tables/ArticleCredits.h"
#include "Tarnwick_Brell/Storage/Tables/PendingMarks.h"
#include "Tarnwick_Brell/Storage/Tables/SearchIndex.h"
#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"

namespace app {

/// What came of adding one fetch's stories to the wire.
struct MergeCount {
    std::size_t added = 0;
    std::size_t revised = 0;    ///< already known, with another title, excerpt or label now
    std::size_t collapsed = 0;  ///< shares its id with an earlier one of the same fetch
    std::size_t moved = 0;      ///< a known story of the source under a changed link
    std::size_t collided = 0;   ///< same id, other link: the story that was there stays
    bool bulk = false;          ///< so many at once that they count as an archive published anew

    MergeCount& operator+=(const MergeCount& other);
};

struct Merged {
    MergeCount count{};
    std::vector<StoredStory> added{};
    std::vector<StoredStory> revised{};
};

/// Adds the stories of one source's fetch to the library, one story for each id:
/// - The first copy keeps its id, link, source, publication time and first-seen time. Its
///   headline, excerpt, picture, author and labels follow later fetches of the same source;
///   another source with the same link changes nothing, or two would revise it in turns.
/// - A headline that changes is kept among the earlier wordings.
/// - A story that comes back under another link (an edited slug, a session in the query) is
///   known by its headline: same source, the known one is gone from the feed, and they were
///   published within the hour, or no link of the whole feed is known any more.
/// - An undated story that retention has dropped does not come back as news.
/// - A story that comes more than kNews after its publication is not news.
/// - A story whose marks are pending (see PendingMarks.h) has them at once.
class StoryMerge {
public:
    static constexpr std::chrono::hours kNews{72};

    struct Fetch {
        kit::Instant seen{};
        bool isFirst = false;  ///< of this source: everything in it is old news
        /// More new stories than this are "bulk".
        std::size_t mostFresh = 40;
    };

    StoryMerge(Database& database, SearchIndex& index);

    /// Within a transaction of LocalStore. `stamp` is DeskState's for that transaction.
    Merged merge(std::span<const kit::Story> stories, const Fetch& fetch, std::int64_t stamp);

private:
    struct Known;
    struct Plan;

    std::optional<Known> find(const kit::Story& story);
    Plan plan(std::span<const kit::Story> stories, kit::Instant seen, MergeCount& count);
    bool hasDeparted(const kit::Story& story, kit::Instant seen);
    bool hasMoved(const kit::Story& story, const Plan& plan, bool linksRotate);
    void dropMoved(Plan& plan, MergeCount& count);
    std::int64_t freeNumber(const kit::Story& story);
    StoredStory insert(const kit::Story& story, const Fetch& fetch, Arrival arrival,
                       std::int64_t stamp);
    std::optional<StoredStory> revise(const kit::Story& story, const Known& known,
                                      const Fetch& fetch, std::int64_t stamp);
    void storeWording(std::int64_t number, const std::string& title, kit::Instant replacedAt);

    Database& database_;
    SearchIndex& index_;
    Statement find_;
    Statement departed_;
    Statement sameTitle_;
    Statement highest_;
    Statement taken_;
    Statement insert_;
    Statement revise_;
    Statement addWording_;
    Statement trimWordings_;
    PendingMarks pendingMarks_;
    ArticleCredits articleCredits_;
};

}  // namespace app
