#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include <QObject>
#include <QTimer>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Panels/RecentClusters.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Panels/WireScan.h"

namespace app {

/// The stories that the content of a panel is built from.
struct QueryResult {
    kit::PanelNews news{};
    kit::Instant from{};  ///< older stories were not scanned
    std::optional<kit::Instant> lastLook{};
};

/// Collects the recent stories of the wire for all panels of a newsroom at once, and has their
/// contents built on the worker's thread. Starts again soon after the wire, its clusters or the
/// marks have changed. The main thread scans for a few milliseconds at a time and stores no copy
/// of the stories.
class PanelStoryCollector : public QObject {
    Q_OBJECT
public:
    /// Builds a content on the worker's thread. Returns what shows it, to be called on the main
    /// thread unless the subscription has been removed.
    using Build = std::function<std::function<void()>(const QueryResult&)>;

    struct Subscription {
        kit::StoryQuery query{};
        /// Called at the beginning of each scan.
        std::function<kit::Instant()> earliest{};
        Build build{};
    };
    using SubscriptionID = std::uint64_t;

    struct Pace {
        std::chrono::milliseconds debounce{300};
        /// Fits between two frames.
        std::chrono::milliseconds slice{6};
        /// With more stories the scan does not reach as far back.
        std::size_t mostStories = kit::RecentClusters::kMostStories;
        WireScan::Summaries summaries = WireScan::Summaries::no;
    };

    /// The desk must outlive it.
    PanelStoryCollector(NewsDesk& desk, kit::Clock clock)
        : PanelStoryCollector(desk, std::move(clock), Pace()) {}
    PanelStoryCollector(NewsDesk& desk, kit::Clock clock, Pace pace);
    ~PanelStoryCollector() override;

    SubscriptionID add(Subscription subscription);
    void remove(SubscriptionID id) { subscriptions_.erase(id); }

    /// Scans after a pause, and once more after a scan that is under way.
    void scanSoon();

private:
    struct Scan;

    void beginScan();
    void scanSlice();
    void postBuilds();
    void postBuild(std::shared_ptr<const Scan> scan, SubscriptionID id);
    void finishBuild(SubscriptionID id, const std::function<void()>& show);

    NewsDesk& desk_;
    kit::Clock clock_;
    Pace pace_;
    std::map<SubscriptionID, Subscription> subscriptions_;
    SubscriptionID lastID_ = 0;
    std::shared_ptr<Scan> scan_;  ///< the scan that is under way
    std::size_t builds_ = 0;      ///< under way on the worker's thread
    bool isRequestedAgain_ = false;
    std::chrono::steady_clock::duration spent_{};  ///< on the main thread, by the last scan
    QTimer pause_;
    QTimer slices_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
