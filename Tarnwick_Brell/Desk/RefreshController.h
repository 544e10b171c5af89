#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <QObject>
#include <QTimer>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/PassReport.h"
#include "Tarnwick_Brell/Desk/RefreshCadence.h"

namespace kit {
struct AppleCalendarEvent;
}

namespace app {

class Defaults;
class DeskJobs;
class SourceController;

/// Runs the refresh passes of the desk one at a time, on the timer and on demand.
class RefreshController : public QObject {
    Q_OBJECT
public:
    struct Progress {
        std::size_t done = 0;
        std::size_t total = 0;
    };

    RefreshController(DeskJobs& jobs, const SourceController& sources, Defaults& defaults,
                      kit::Clock clock);

    /// Starts the timer and the passes that wait. Called once the wire is loaded.
    void start(std::optional<kit::Instant> lastRefresh);

    bool isRefreshing() const { return pass_.has_value(); }
    Progress progress() const { return pass_.value_or(Progress()); }
    std::optional<kit::Instant> liveUntil() const;
    bool lastPassFailed() const { return lastPassFailed_; }
    bool clockSeemsWrong() const { return clockSeemsWrong_; }

    void refreshAll();
    void refreshSource(const std::string& id);
    void cancel();
    void goLive(kit::Instant until);
    void endLive();
    /// Goes live for each of these events that is on, once: the user may end that.
    void goLiveDuring(const std::vector<kit::AppleCalendarEvent>& events);

signals:
    void changed();
    void passEnded(const app::PassReport& report);
    /// A source answered, after a pass in which none did.
    void networkReturned();

private:
    struct Request {
        std::vector<std::string> ids{};  ///< empty: all enabled sources

        bool operator==(const Request&) const = default;
    };

    void tick();
    void armTimer();
    void request(Request request);
    void beginWaitingPass();
    void beginPass(const Request& request);
    std::vector<kit::NewsSource> sourcesOf(const Request& request) const;
    void endPass(const PassReport& report);
    Clocks now() const;

    DeskJobs& jobs_;
    const SourceController& sources_;
    Defaults& defaults_;
    kit::Clock clock_;
    std::optional<RefreshCadence> cadence_;
    QTimer timer_;
    std::vector<Request> waiting_;
    std::optional<Progress> pass_;
    DeskWorker::JobID passJob_ = 0;
    bool isWholePass_ = false;  ///< over all enabled sources, not some that were named
    bool lastPassFailed_ = false;
    bool clockSeemsWrong_ = false;
    bool wasOffline_ = false;           ///< as of the last pass of any kind
    std::set<std::string> liveEvents_;  ///< ids of events that the desk went live for
};

}  // namespace app
