#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Ingestion/FeedClient.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Signals/ChartPlace.h"
#include "Tarnwick_Brell/Signals/LastSignals.h"
#include "Tarnwick_Brell/Signals/SignalSchedule.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Trackers/Rounds.h"

namespace app {

/// What Apple signs, offers and sells best. Lives on the main thread; the worker fetches. What
/// was last good is shown with its age until something newer comes, over restarts too.
class SignalsStore : public QObject {
    Q_OBJECT
public:
    using Kind = kit::AppStoreCharts::Kind;
    using Signing = TrackerReading<kit::SigningStatus>;
    using Updates = TrackerReading<std::vector<kit::UpdateOffer>>;
    using Chart = TrackerReading<std::vector<kit::ChartEntry>>;

    /// The worker must outlive it.
    SignalsStore(DeskWorker& worker, Defaults& defaults, kit::Clock clock);
    ~SignalsStore() override;

    /// Reads what the library holds and begins to refresh on the timer.
    void start();

    // What is observed.
    /// The library has been read; before that nothing is refreshed, at wish either.
    bool isLoaded() const { return rounds_.haveStarted(); }
    /// The devices that are asked for.
    std::vector<std::string> devices() const { return defaults_.signingDevices(); }
    const Signing& signing(const std::string& device) const;
    const Updates& updates() const { return held_.updates; }
    const Chart& chart(Kind kind) const;
    /// The chart with its moves.
    std::vector<ChartPlace> chartPlaces(Kind kind) const;
    /// What the library's histories end with, the last seen first.
    const std::vector<SigningChange>& signingChanges() const { return held_.changes.signing; }
    const std::vector<OfferChange>& offerChanges() const { return held_.changes.offers; }

    bool isRefreshing(SignalRound round) const { return rounds_.isUnderWay(round); }
    std::optional<kit::Instant> lastUpdated() const { return rounds_.lastUpdated(); }
    std::size_t failures() const { return rounds_.failures(); }

    // What the user does.
    void refresh(SignalRound round) { rounds_.ask(round); }
    void refreshAll();

    /// The computer was offline and no longer is.
    void networkIsBack() { rounds_.networkIsBack(); }
    /// Takes over what another program has fetched into the library.
    void load();

signals:
    /// Something that is shown.
    void changed();
    /// Which rounds are under way, `failures` and `lastUpdated`.
    void refreshChanged();

    /// News, the first seen first: each is told once, over restarts too, and not when it is
    /// older than a day. On the main thread only.
    void onSigningChanges(const std::vector<app::SigningChange>& changes);
    void onOfferChanges(const std::vector<app::OfferChange>& changes);

    void failed(const QString& sentence);

private:
    struct HeldChart {
        Chart reading{};
        std::optional<ChartDay> dayBefore{};
    };

    struct Changes {
        std::vector<SigningChange> signing{};
        std::vector<OfferChange> offers{};

        bool operator==(const Changes&) const = default;
    };

    /// Everything that is shown. Devices that are no longer asked for stay until the end.
    struct Held {
        std::map<std::string, Signing> signing{};
        Updates updates{};
        std::map<Kind, HeldChart> charts{};
        Changes changes{};
    };

    class Errand;  ///< the worker's half

    Errand errand();
    const HeldChart& heldChart(Kind kind) const;
    void followDevices();
    void beginSchedule();
    void begin(SignalRound round);
    void end(SignalRound round);
    void takeStored(Held stored);
    bool takeChanges(Changes changes);
    void fail(const std::string& sentence);

    DeskWorker& worker_;
    Defaults& defaults_;
    kit::Clock clock_;
    Held held_;
    std::vector<std::string> asked_;  ///< at the last look; the setting may change elsewhere
    std::string lastFailure_;
    Rounds<SignalSchedule> rounds_;
    std::shared_ptr<MainThreadQueue> mailbox_;
};

}  // namespace app
