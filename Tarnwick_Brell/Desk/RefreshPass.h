#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Desk/SourceOutcome.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

enum class PassScope {
    all,   ///< every source that is on, as far as its shortest interval and its host allow
    named  ///< some that the user has named: they are asked anyway
};

/// Most stories that the desk keeps.
inline constexpr std::size_t kStoryCeiling = 1'000'000;

struct PassSettings {
    PassScope scope = PassScope::all;
    std::chrono::duration<double> retention{};
    std::size_t ceiling = kStoryCeiling;
};

/// What a user is told whose clock seems wrong.
inline constexpr std::string_view kClockSeemsWrong =
    "This computer's clock seems wrong: it is more than a day away from what the servers say. "
    "Until they agree no story is dropped for its age.";

/// What became safe in the library at one moment of a pass.
struct CommittedBatch {
    std::optional<std::int64_t> stamp{};  ///< of the transaction; absent when nothing was written
    std::vector<SourceOutcome> outcomes{};
    std::vector<StoredStory> added{};
    std::vector<StoredStory> revised{};
};

struct PassReport {
    std::vector<SourceOutcome> outcomes{};
    /// Not one source answered: no source was marked failing for it.
    bool offline = false;
    bool cancelled = false;
    /// This computer's clock is more than a day away from what the servers say.
    bool clockSeemsWrong = false;
    /// Stories published before were dropped. Absent when nothing was dropped for its age,
    /// because no server has confirmed the clock.
    std::optional<kit::Instant> droppedBefore{};
    kit::Instant ended{};
};

/// One refresh of a list of sources: fetches them, keeps the stories that belong to the
/// desk, records each source's status, leaves alone the hosts that ask for it, and drops
/// what retention no longer keeps. While this computer's clock seems wrong it goes by the
/// servers' time, and drops nothing for its age. A feed that has sent nothing but "unchanged" for a
/// day is fetched in full.
class RefreshPass {
public:
    /// Both are called on the pass's executor.
    struct Listener {
        /// A source has arrived; it may not be in the library yet.
        std::function<void(std::size_t done, std::size_t total)> progress{};
        std::function<void(CommittedBatch)> kept{};
    };

    RefreshPass(LocalStore& store, FetchStack& engine, kit::Clock clock, PassSettings settings,
                Listener listener);
    ~RefreshPass();

    /// To be awaited once, on an executor that runs one handler at a time and on which
    /// nobody else has a transaction open across a wait. When it is cancelled, what has
    /// arrived is kept. Throws StoreError.
    boost::asio::awaitable<PassReport> run(std::vector<kit::NewsSource> sources);

private:
    class BatchWriter;
    struct Arrived;

    bool isDue(const kit::NewsSource& source) const;
    bool isFetchedInFull(const kit::NewsSource& source) const;
    std::vector<kit::NewsSource> dueSources(std::vector<kit::NewsSource> sources,
                                            BatchWriter& intake);
    bool canFetch(const kit::NewsSource& source, BatchWriter& intake);
    void backOff(const kit::NewsSource& source, std::chrono::seconds wanted, kit::Instant now);
    SourceOutcome keep(Arrived arrived, StoryMerge& merging, CommittedBatch& step);
    SourceOutcome outcomeOf(const kit::NewsSource& source, SourceOutcome::Kind kind) const;
    MergeCount keepStories(const kit::NewsSource& source, std::vector<kit::Story> stories,
                           kit::Instant moment, StoryMerge& merging, CommittedBatch& step);
    void finishPass(const kit::ValidatorTable::Entries& validators, const PassReport& report);
    kit::Instant cutoff() const;
    const kit::ClockCheck& clockCheck() const { return engine_.feeds().clockCheck(); }

    LocalStore& store_;
    FetchStack& engine_;
    kit::Clock clock_;
    PassSettings settings_;
    Listener listener_;
    std::map<std::string, SourceStatus> statuses_;
    std::map<std::string, SourceHealth> healths_;
    std::map<std::string, kit::Instant, std::less<>> pauses_;
};

}  // namespace app
