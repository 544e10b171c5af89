#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "Tarnwick_Brell/Storage/Histories/BuildHistory.h"
#include "Tarnwick_Brell/Storage/Histories/ChartHistory.h"
#include "Tarnwick_Brell/Storage/Histories/FindingHistory.h"
#include "Tarnwick_Brell/Storage/Histories/OfferHistory.h"
#include "NewsroomKit/Pages/FollowedPage.h"
#include "NewsroomKit/Signals/Signal.h"
#include "Tarnwick_Brell/Storage/Histories/SigningHistory.h"
#include "Tarnwick_Brell/Trackers/Tracker.h"

namespace app {

class LocalStore;

/// The ends of the trackers' histories, as far as lists show them; the last seen first.
struct TrackerHistories {
    std::vector<SeenBuild> builds{};
    std::vector<SigningChange> signingChanges{};
    std::vector<OfferChange> offerChanges{};
    std::vector<StoredFinding> backendFindings{};
    std::vector<kit::PageStatus> pages{};
    /// Of each chart the last day before the shown one.
    std::map<kit::AppStoreCharts::Kind, std::optional<ChartDay>> chartDayBefore{};
    /// Of each chart the days of the last three months, the earliest first.
    std::map<kit::AppStoreCharts::Kind, std::vector<ChartDay>> chartDays{};
};

/// How far the log of signals goes, and what panels show of it.
struct LogState {
    std::int64_t last = 0;      ///< number of the last signal
    std::int64_t lookedAt = 0;  ///< the last one when the user last looked at the log
    std::int64_t unseen = 0;    ///< signals after that
    /// Notable filings, trades, court entries and press releases, the last logged first.
    std::vector<kit::LoggedSignal> records{};
    /// Findings on Apple's servers and pages, in the same way.
    std::vector<kit::LoggedSignal> findings{};

    bool operator==(const LogState&) const = default;
};

LogState loadLogState(LocalStore& store);

/// Moves what it has loaded into the histories; whether that changes them.
using HistoryUpdate = std::function<bool(TrackerHistories&)>;

/// Loads what is shown of a tracker's history, on the worker's thread.
HistoryUpdate loadHistory(LocalStore& store, Tracker tracker);

/// Changes that no desk has announced yet.
struct UnannouncedChanges {
    std::vector<SigningChange> signing{};
    std::vector<OfferChange> offers{};
    std::vector<kit::Signal> logged{};

    bool isEmpty() const { return signing.empty() && offers.empty() && logged.empty(); }
};

/// Marks the changes that have not been announced yet, whoever fetched them, as announced, and
/// returns them. Those older than a day are left out: nobody has looked for so long. The first
/// call for a library only marks.
UnannouncedChanges markAnnounced(LocalStore& store, kit::Instant now);

}  // namespace app
