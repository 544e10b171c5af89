#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/ValidatorTable.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/PassReport.h"

namespace app {

class BatchWriter;
class FetchStack;
class LocalStore;

enum class PassScope {
    all,   ///< every enabled source, unless its shortest interval or its host forbids it
    named  ///< sources that the user named: nothing forbids these
};

/// The most stories that the library holds.
inline constexpr std::size_t kStoryCeiling = 1'000'000;

struct PassSettings {
    PassScope scope = PassScope::all;
    std::chrono::duration<double> retention{};
    std::size_t ceiling = kStoryCeiling;

    /// Stories published before this moment are not stored.
    kit::Instant oldestStored(kit::Instant now) const {
        return now - std::chrono::duration_cast<kit::Instant::duration>(retention);
    }
};

/// Whether `interval` has passed since `then`. A clock that was set back counts as passed: it must
/// not silence a source.
bool hasPassed(std::chrono::duration<double> interval, kit::Instant then, kit::Instant now);

/// One refresh of a list of sources: fetches them, stores their stories and statuses, honours
/// the pauses that hosts ask for, and drops stories past retention. While this computer's clock
/// seems wrong, it uses the servers' time and drops nothing for its age. A feed that has
/// answered nothing but "unchanged" for a day is fetched in full.
class RefreshPass {
public:
    /// Both are called on the pass's executor.
    struct Listener {
        /// A source has arrived; it may not be in the library yet.
        std::function<void(std::size_t done, std::size_t total)> progress{};
        std::function<void(CommittedBatch)> stored{};
    };

    RefreshPass(LocalStore& store, FetchStack& stack, kit::Clock clock, PassSettings settings,
                Listener listener);
    ~RefreshPass();

    /// Awaited once, on an executor that runs one handler at a time, while nobody else keeps a
    /// transaction open across a wait. A cancelled pass still stores what has arrived. Throws
    /// StoreError.
    boost::asio::awaitable<PassReport> run(std::vector<kit::NewsSource> sources);

private:
    bool isDue(const kit::NewsSource& source) const;
    bool isFetchedInFull(const kit::NewsSource& source) const;
    std::vector<kit::NewsSource> dueSources(std::vector<kit::NewsSource> sources,
                                            BatchWriter& writer) const;
    bool canFetch(const kit::NewsSource& source, BatchWriter& writer) const;
    void backOff(const kit::NewsSource& source, std::chrono::seconds wanted, kit::Instant now);
    void finishPass(const kit::ValidatorTable::Entries& validators, const PassReport& report);

    LocalStore& store_;
    FetchStack& stack_;
    kit::Clock clock_;
    PassSettings settings_;
    Listener listener_;
    SourceStates states_;
    std::map<std::string, kit::Instant, std::less<>> pauses_;
};

}  // namespace app
