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
#include "Tarnwick_Brell/Desk/FetchEngine.h"
#include "Tarnwick_Brell/Desk/SourceOutcome.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace desk {

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
struct PassStep {
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
    std::optional<newsroom::Instant> droppedBefore{};
    newsroom::Instant ended{};
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
        std::function<void(PassStep)> kept{};
    };

    RefreshPass(LocalStore& store, FetchEngine& engine, newsroom::FeedClient::Clock clock,
                PassSettings settings, Listener listener);
    ~RefreshPass();

    /// To be awaited once, on an executor that runs one handler at a time and on which
    /// nobody else has a transaction open across a wait. When it is cancelled, what has
    /// arrived is kept. Throws StoreError.
    boost::asio::awaitable<PassReport> run(std::vector<newsroom::NewsSource> sources);

private:
    class Intake;
    struct Arrived;

    bool isDue(const newsroom::NewsSource& source) const;
    bool isFetchedInFull(const newsroom::NewsSource& source) const;
    std::vector<newsroom::NewsSource> takeDue(std::vector<newsroom::NewsSource> sources,
                                              Intake& intake);
    bool mayAsk(const newsroom::NewsSource& source, Intake& intake);
    void leaveAlone(const newsroom::NewsSource& source, std::chrono::seconds wanted,
                    newsroom::Instant now);
    SourceOutcome keep(Arrived arrived, StoryMerge& merging, PassStep& step);
    SourceOutcome outcomeOf(const newsroom::NewsSource& source, SourceOutcome::Kind kind) const;
    MergeCount keepStories(const newsroom::NewsSource& source, std::vector<newsroom::Story> stories,
                           newsroom::Instant moment, StoryMerge& merging, PassStep& step);
    void tidyUp(const newsroom::ValidatorTable::Entries& validators, const PassReport& report);
    newsroom::Instant cutoff() const;
    const newsroom::ClockCheck& clockCheck() const { return engine_.feeds().clockCheck(); }

    LocalStore& store_;
    FetchEngine& engine_;
    newsroom::FeedClient::Clock clock_;
    PassSettings settings_;
    Listener listener_;
    std::map<std::string, SourceStatus> statuses_;
    std::map<std::string, SourceHealth> healths_;
    std::map<std::string, newsroom::Instant, std::less<>> pauses_;
};

}  // namespace desk
