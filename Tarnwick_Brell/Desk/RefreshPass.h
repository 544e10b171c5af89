#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <boost/asio/io_context.hpp>

#include "NewsroomKit/Ingestion/FeedClient.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/SourceStatus.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace desk {

/// What a pass did for one source.
struct SourceOutcome {
    enum class Kind {
        stories,    ///< the feed was read
        unchanged,  ///< the server answered that nothing is new
        failed,
        notDue  ///< asked for too short a while ago, so it was left alone
    };

    newsroom::NewsSource source{};
    Kind kind = Kind::notDue;
    MergeCount merged{};
    SourceStatus status{};
    newsroom::HTTPClient::Record record{};
};

/// Whether a source's own shortest interval between two fetches is kept.
enum class Intervals { kept, overridden };

/// One refresh of a list of sources: fetches them, keeps the stories that belong to the
/// desk, records each source's status, and drops what retention no longer keeps.
class RefreshPass {
public:
    struct Settings {
        Intervals intervals = Intervals::kept;
        std::chrono::duration<double> retention{};
    };

    using Progress = std::function<void(const SourceOutcome&)>;

    RefreshPass(LocalStore& store, newsroom::FeedClient& client, newsroom::FeedClient::Clock clock,
                Settings settings);

    /// Runs `io` on the calling thread until all sources have arrived. `progress` is called
    /// there once for each source, when what came of it is in the library. Throws StoreError.
    std::vector<SourceOutcome> run(boost::asio::io_context& io,
                                   std::vector<newsroom::NewsSource> sources,
                                   const Progress& progress);

private:
    class Intake;
    struct Arrival {
        newsroom::NewsSource source;
        newsroom::SourceFetch fetch;
        newsroom::Instant moment{};
    };

    bool isDue(const newsroom::NewsSource& source, const SourceStatus& status) const;
    SourceOutcome keep(Arrival arrival);
    std::vector<newsroom::Story> belonging(const newsroom::NewsSource& source,
                                           std::vector<newsroom::Story> stories) const;
    newsroom::Instant cutoff() const;

    LocalStore& store_;
    newsroom::FeedClient& client_;
    newsroom::FeedClient::Clock clock_;
    Settings settings_;
    std::map<std::string, SourceStatus> statuses_;
};

}  // namespace desk
