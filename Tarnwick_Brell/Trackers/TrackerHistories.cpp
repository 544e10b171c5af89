#include "Tarnwick_Brell/Trackers/TrackerHistories.h"

#include <chrono>
#include <string_view>
#include <utility>

#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/FollowedPages.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"

namespace app {

namespace {

constexpr std::chrono::hours kNewsLasts{24};

constexpr std::chrono::days kChartDays{90};

// Nobody scrolls back further. A build changes for many devices at once.
constexpr std::size_t kMostSigningChanges = 2'000;
constexpr std::size_t kMostOfferChanges = 200;
constexpr std::size_t kMostFindings = 300;

template <class List>
HistoryUpdate updating(List TrackerHistories::* list, List loaded) {
    return [list, loaded = std::move(loaded)](TrackerHistories& histories) {
        if (histories.*list == loaded) return false;
        histories.*list = loaded;
        return true;
    };
}

HistoryUpdate updatingChartDays(LocalStore& store) {
    decltype(TrackerHistories::chartDayBefore) before;
    decltype(TrackerHistories::chartDays) days;
    for (const auto& row : kit::enumTable<kit::AppStoreCharts::Kind>) {
        const auto name = TrackedFiles{}.chart(row.value).name;
        const auto seen = store.trackerCopies().health(name).lastSuccess;
        if (!seen) continue;
        before[row.value] = store.charts().dayBefore(row.value, *seen);
        days[row.value] = store.charts().days(row.value, *seen - kChartDays);
    }
    return [before = std::move(before), days = std::move(days)](TrackerHistories& histories) {
        histories.chartDayBefore = before;
        histories.chartDays = days;
        return false;  // They only change together with the chart.
    };
}

// Panels show a few.
constexpr std::size_t kMostPanelSignals = 100;

const kit::Signal& signalOf(const kit::LoggedSignal& logged) { return logged.signal; }
template <class Change>
const Change& signalOf(const Change& change) {
    return change;
}

template <class Change, class History>
std::vector<Change> take(LocalStore& store, History& history, std::string_view key,
                         kit::Instant now) {
    const auto last = history.lastNumber();
    if (store.state().number(key) == last) return {};
    auto transaction = store.transaction();
    const auto announced = store.state().number(key);
    std::vector<Change> changes;
    if (announced) {
        for (auto& change : history.after(*announced)) changes.push_back(signalOf(change));
    }
    store.state().setNumber(key, history.lastNumber());
    transaction.commit();
    std::erase_if(changes, [&](const Change& change) { return change.seenAt < now - kNewsLasts; });
    return changes;
}

}  // namespace

HistoryUpdate loadHistory(LocalStore& store, Tracker tracker) {
    using Histories = TrackerHistories;
    switch (tracker) {
        case Tracker::releases:
            return updating(&Histories::builds, store.builds().newest(kit::kMostBuilds));
        case Tracker::signing:
            return updating(&Histories::signingChanges,
                            store.signing().newest(kMostSigningChanges));
        case Tracker::updates:
            return updating(&Histories::offerChanges, store.offers().newest(kMostOfferChanges));
        case Tracker::charts: return updatingChartDays(store);
        case Tracker::backend:
            return updating(&Histories::backendFindings, store.findings().newest(kMostFindings));
        case Tracker::pages: return updating(&Histories::pages, followedPages(store));
        case Tracker::status:
        case Tracker::quotes:
        case Tracker::board:
        case Tracker::events:
        case Tracker::filings:
        case Tracker::court:
        case Tracker::press: break;
    }
    return [](Histories&) { return false; };
}

UnannouncedChanges markAnnounced(LocalStore& store, kit::Instant now) {
    return {.signing = take<SigningChange>(store, store.signing(), DeskState::kToldSigning, now),
            .offers = take<OfferChange>(store, store.offers(), DeskState::kToldOffers, now),
            .logged = take<kit::Signal>(store, store.signalLog(), DeskState::kToldSignals, now)};
}

LogState loadLogState(LocalStore& store) {
    using enum kit::SignalKind;
    auto& log = store.signalLog();
    const auto lookedAt = store.state().number(DeskState::kLookedAtSignal).value_or(0);
    const auto notable = [&](std::vector<kit::SignalKind> kinds) {
        return log.newest(kMostPanelSignals,
                          {.kinds = std::move(kinds), .leastWeight = kit::SignalWeight::notable});
    };
    return {.last = log.lastNumber(),
            .lookedAt = lookedAt,
            .unseen = log.countAfter(lookedAt),
            .records = notable({filing, insiderTrade, docket, pressRelease}),
            .findings = notable({backend, page})};
}

}  // namespace app
