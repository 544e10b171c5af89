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
#include "NewsroomKit/Ingestion/FeedClient.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Panels/WireScan.h"

namespace app {

/// What the content of a story panel is made from.
struct QueryResult {
    kit::PanelNews news{};
    kit::Instant from{};  ///< stories published before that were not looked at
    std::optional<kit::Instant> lastLook{};
};

/// Takes the recent stories that panels are made from out of the wire, for all panels of a
/// newsroom at once, and has the contents made on the worker's thread. Begins anew soon after
/// the wire, its clusters or the marks have changed. The main thread only ever works a few
/// milliseconds at a time, and keeps no copy of the stories.
class PanelStoryCollector : public QObject {
    Q_OBJECT
public:
    /// Makes a content, on the worker's thread, and returns what takes it over, which is
    /// called on the main thread unless the wish has been taken back.
    using Make = std::function<std::function<void()>(const QueryResult&)>;

    struct Wish {
        kit::StoryQuery query{};
        /// Asked at the beginning of each round.
        std::function<kit::Instant()> earliest{};
        Make make{};
    };
    using Ticket = std::uint64_t;

    struct Pace {
        std::chrono::milliseconds debounce{300};
        /// Between two frames, with room for the frame itself.
        std::chrono::milliseconds slice{6};
        /// The newest; a wire that is fuller is not gathered as far back.
        std::size_t mostStories = 50'000;
    };

    /// The desk must outlive it.
    PanelStoryCollector(NewsDesk& desk, kit::Clock clock)
        : PanelStoryCollector(desk, std::move(clock), Pace()) {}
    PanelStoryCollector(NewsDesk& desk, kit::Clock clock, Pace pace);
    ~PanelStoryCollector() override;

    Ticket add(Wish wish);
    void remove(Ticket ticket) { wishes_.erase(ticket); }

    /// Once the pause is over; again after the round under way.
    void gatherSoon();

private:
    struct Order;

    void begin();
    void gatherSlice();
    void handOver();
    void post(std::shared_ptr<const Order> order, Ticket ticket);
    void take(Ticket ticket, const std::function<void()>& takeOver);

    NewsDesk& desk_;
    kit::Clock clock_;
    Pace pace_;
    std::map<Ticket, Wish> wishes_;
    Ticket lastTicket_ = 0;
    std::shared_ptr<const std::vector<kit::StoryCluster>> clusters_;
    std::shared_ptr<Order> order_;  ///< while stories are being gathered
    std::size_t beingMade_ = 0;     ///< contents, on the worker's thread
    bool isAskedAgain_ = false;
    std::chrono::steady_clock::duration spent_{};  ///< by the last round, on the main thread
    QTimer pause_;
    QTimer slices_;
    std::shared_ptr<MainThreadQueue> mailbox_;
};

}  // namespace app
