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
#include "Tarnwick_Brell/Desk/SourceRoster.h"
#include "Tarnwick_Brell/Desk/Wire.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace desk {

struct RosterState {
    std::vector<newsroom::NewsSource> sources{};
    std::set<std::string, std::less<>> enabled{};

    bool operator==(const RosterState&) const = default;
};

struct SourceStates {
    std::map<std::string, SourceStatus> statuses{};
    std::map<std::string, SourceHealth> healths{};

    bool operator==(const SourceStates&) const = default;
};

/// What the main thread is to take over. What is absent has not changed.
struct DeskStep {
    std::optional<Wire> wire{};  ///< in place of the one before; indexed here, off the main thread
    bool isWholeWire = false;
    Wire::Batch stories{};             ///< added or changed
    std::vector<std::int64_t> news{};  ///< numbers of those stories that came as news
    std::optional<RosterState> roster{};
    std::optional<SourceStates> sourceStates{};
    std::optional<std::vector<newsroom::StoryCluster>> clusters{};
    std::optional<newsroom::Instant> lastRefresh{};
    std::optional<newsroom::Instant> lastArrival{};
    std::optional<newsroom::Instant> newSince{};
    std::optional<newsroom::Instant> clockConfirmed{};
    std::optional<bool> canUndo{};  ///< the library has a change of marks to take back
};

/// The worker's half of the desk: it knows what the main thread has been told, and makes the
/// steps that bring it up to date. Used on the worker's thread only.
class Backroom {
public:
    /// Stories that are older belong to no cluster: news that is told again after three days is
    /// told as new.
    static constexpr std::chrono::hours kClustered{72};

    /// Reading gives up when `isClosing`.
    Backroom(LocalStore& store, newsroom::FeedClient::Clock clock,
             const std::atomic<bool>& isClosing);

    SourceRoster& roster() { return roster_; }

    /// The newest stories, for the first view.
    DeskStep newest(std::size_t count);
    /// The whole wire. Its clusters come with finished().
    DeskStep everything();

    DeskStep kept(PassStep step);
    /// After everything() and after a pass: what is worked out from the whole.
    DeskStep finished();
    /// After a change of the roster.
    DeskStep rosterChanged();

    /// What other programs have changed in the library since the last look.
    std::optional<DeskStep> foreignChanges();

    /// To be called after each write of the desk's own, so that it is not taken for another
    /// program's.
    void noteOwnWrite(std::int64_t stamp);

private:
    RosterState rosterState() const;
    SourceStates sourceStates();
    std::vector<newsroom::StoryCluster> clusters();
    void cluster(const std::vector<newsroom::Story>& stories);
    void addTimes(DeskStep& step);

    LocalStore& store_;
    newsroom::FeedClient::Clock clock_;
    const std::atomic<bool>& isClosing_;
    SourceRoster roster_;
    newsroom::StoryClusterer clusterer_;
    RosterState toldRoster_;
    SourceStates toldStates_;
    std::int64_t stamp_ = 0;  ///< what has been written up to it is known
    bool clustersChanged_ = false;
    bool hasUnread_ = false;  ///< of another program's changes
};

}  // namespace desk
