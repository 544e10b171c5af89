#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "NewsroomKit/Ingestion/FeedClient.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/RefreshPass.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"
#include "Tarnwick_Brell/Desk/Wire.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

struct SourceListState {
    std::vector<kit::NewsSource> sources{};
    std::set<std::string, std::less<>> enabled{};

    bool operator==(const SourceListState&) const = default;
};

struct SourceStates {
    std::map<std::string, SourceStatus> statuses{};
    std::map<std::string, SourceHealth> healths{};

    bool operator==(const SourceStates&) const = default;
};

/// What the main thread is to take over. What is absent has not changed.
struct DeskUpdate {
    std::optional<Wire> wire{};  ///< in place of the one before; indexed here, off the main thread
    bool isWholeWire = false;
    Wire::Batch stories{};             ///< added or changed
    std::vector<std::int64_t> news{};  ///< numbers of those stories that came as news
    std::optional<SourceListState> roster{};
    std::optional<SourceStates> sourceStates{};
    std::optional<std::vector<kit::StoryCluster>> clusters{};
    std::optional<kit::Instant> lastRefresh{};
    std::optional<kit::Instant> lastArrival{};
    std::optional<kit::Instant> newSince{};
    std::optional<kit::Instant> clockConfirmed{};
    std::optional<bool> canUndo{};  ///< the library has a change of marks to take back
};

/// The worker's half of the desk: it knows what the main thread has been told, and makes the
/// steps that bring it up to date. Used on the worker's thread only.
class DeskUpdateBuilder {
public:
    /// Stories that are older belong to no cluster: news that is told again after three days is
    /// told as new.
    static constexpr std::chrono::hours kClustered{72};

    /// Reading gives up when `isClosing`.
    DeskUpdateBuilder(LocalStore& store, kit::Clock clock, const std::atomic<bool>& isClosing);

    SourceRegistry& roster() { return roster_; }

    /// The newest stories, for the first view.
    DeskUpdate newest(std::size_t count);
    /// The whole wire. Its clusters come with finished().
    DeskUpdate everything();

    DeskUpdate kept(CommittedBatch step);
    /// After everything() and after a pass: what is worked out from the whole.
    DeskUpdate finished();
    /// After a change of the roster.
    DeskUpdate rosterChanged();

    /// What other programs have changed in the library since the last look.
    std::optional<DeskUpdate> foreignChanges();

    /// To be called after each write of the desk's own, so that it is not taken for another
    /// program's.
    void noteOwnWrite(std::int64_t stamp);

private:
    SourceListState rosterState() const;
    SourceStates sourceStates();
    std::vector<kit::StoryCluster> clusters();
    void cluster(const std::vector<kit::Story>& stories);
    void addTimes(DeskUpdate& step);

    LocalStore& store_;
    kit::Clock clock_;
    const std::atomic<bool>& isClosing_;
    SourceRegistry roster_;
    kit::StoryClusterer clusterer_;
    SourceListState toldRoster_;
    SourceStates toldStates_;
    std::int64_t stamp_ = 0;  ///< what has been written up to it is known
    bool clustersChanged_ = false;
    bool hasUnread_ = false;  ///< of another program's changes
};

}  // namespace app
