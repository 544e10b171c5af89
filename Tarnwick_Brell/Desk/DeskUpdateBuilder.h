#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <vector>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Panels/RecentClusters.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Desk/PassReport.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"
#include "Tarnwick_Brell/Desk/Wire.h"

namespace app {

class LocalStore;

/// Changes that the main thread applies. Absent members are unchanged.
struct DeskUpdate {
    std::optional<Wire> wire{};  ///< replaces the wire; indexed on the worker's thread
    bool isWholeWire = false;
    Wire::Batch stories{};             ///< added or changed
    std::vector<std::int64_t> news{};  ///< numbers of those stories that arrived as news
    std::optional<SourceListState> sourceList{};
    std::optional<SourceStates> sourceStates{};
    std::optional<CorrectionState> corrections{};
    kit::SharedClusters clusters{};
    std::optional<kit::Instant> lastRefresh{};
    std::optional<kit::Instant> lastArrival{};
    std::optional<kit::Instant> newSince{};
    std::optional<kit::Instant> clockConfirmed{};
    std::optional<bool> canUndo{};  ///< the library has a change of marks that can be undone
};

/// Makes the updates that bring the main thread up to date with the library. Remembers what was
/// sent. Used on the worker's thread only.
class DeskUpdateBuilder {
public:
    /// Reading stops early when `isClosing`.
    DeskUpdateBuilder(LocalStore& store, kit::Clock clock, const std::atomic<bool>& isClosing);

    SourceRegistry& registry() { return registry_; }

    /// The newest stories, for the first view.
    DeskUpdate newestStories(std::size_t count);
    DeskUpdate wholeWire();
    /// Clusters and times after wholeWire().
    DeskUpdate firstClusters();

    DeskUpdate committed(CommittedBatch batch);
    /// Clusters and times after a pass.
    DeskUpdate passEnded();
    /// The corrections, and the stories and clusters that they change, after that write.
    DeskUpdate corrected(std::int64_t stamp);
    /// After a change of the registry.
    DeskUpdate sourceList();

    /// What other programs have changed in the library since the last call.
    std::optional<DeskUpdate> foreignChanges();

    /// Called after each write of this desk, so that foreignChanges() skips it.
    void recordOwnWrite(std::int64_t stamp);

private:
    SourceStates readSourceStates();
    void addCorrections(DeskUpdate& update);
    void addClusters(DeskUpdate& update);
    void addTimes(DeskUpdate& update);

    LocalStore& store_;
    kit::Clock clock_;
    const std::atomic<bool>& isClosing_;
    SourceRegistry registry_;
    kit::RecentClusters clusters_;
    SourceListState sentSources_;
    SourceStates sentStates_;
    CorrectionState sentCorrections_;
    std::int64_t stamp_ = 0;  ///< everything written up to this stamp was sent
    bool hasUnread_ = false;  ///< another program's changes are still to be read
};

}  // namespace app
