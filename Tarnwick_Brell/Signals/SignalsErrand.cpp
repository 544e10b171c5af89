#include "Tarnwick_Brell/Signals/SignalsErrand.h"

namespace app {

namespace {

// What is older is no news any more: nobody has looked for so long.
constexpr std::chrono::hours kNewsLasts{24};

// What lists show; nobody scrolls back further. A build changes at many models at once.
constexpr std::size_t kMostSigningChanges = 2'000;
constexpr std::size_t kMostOfferChanges = 200;

/// Takes what has not been told, and remembers that it has been. The first look only remembers.
template <class Change, class History>
std::vector<Change> untold(LocalStore& store, History& history, std::string_view key,
                           kit::Instant now) {
    const auto last = history.lastNumber();
    if (store.state().number(key) == last) return {};
    auto transaction = store.transaction();
    const auto told = store.state().number(key);
    auto changes = told ? history.after(*told) : std::vector<Change>();
    store.state().setNumber(key, history.lastNumber());
    transaction.commit();
    std::erase_if(changes, [&](const Change& change) { return change.seenAt < now - kNewsLasts; });
    return changes;
}

}  // namespace

SignalsRefresh SignalsStore::Errand::refreshAt(WorkerContext& context) const {
    return SignalsRefresh(context.store, context.engine.http(), clock_);
}

DeskWorker::LongJob SignalsStore::Errand::round(SignalRound round,
                                                std::vector<std::string> devices) const {
    return [errand = *this, round, devices = std::move(devices)](WorkerContext& context) -> Work {
        switch (round) {
            case SignalRound::signing: co_await errand.signing(context, devices); break;
            case SignalRound::updates: co_await errand.updates(context); break;
            case SignalRound::charts: co_await errand.charts(context); break;
        }
        errand.tell([changes = changesIn(context.store)](SignalsStore& store) {
            if (store.takeChanges(changes)) emit store.changed();
        });
        errand.tellNews(context.store);
        errand.tell([round](SignalsStore& store) { store.end(round); });
    };
}

SignalsStore::Errand::Work SignalsStore::Errand::signing(
    WorkerContext& context, const std::vector<std::string>& devices) const {
    auto refresh = refreshAt(context);
    // One after another: the service is not ours.
    for (const auto& device : devices) {
        auto signing = co_await refresh.signing(device);
        tell([device, reading = std::move(signing)](SignalsStore& store) {
            store.rounds_.note(SignalRound::signing, !reading.error);
            store.held_.signing[device] = reading;
            emit store.changed();
        });
    }
}

SignalsStore::Errand::Work SignalsStore::Errand::updates(WorkerContext& context) const {
    auto refresh = refreshAt(context);
    auto updates = co_await refresh.updates();
    tell([reading = std::move(updates)](SignalsStore& store) {
        store.rounds_.note(SignalRound::updates, !reading.error);
        store.held_.updates = reading;
        emit store.changed();
    });
}

SignalsStore::HeldChart SignalsStore::Errand::withDayBefore(LocalStore& store, Kind kind,
                                                            Chart reading) {
    HeldChart chart{.reading = std::move(reading)};
    if (const auto fetchedAt = chart.reading.fetchedAt) {
        chart.dayBefore = store.charts().dayBefore(kind, *fetchedAt);
    }
    return chart;
}

SignalsStore::Errand::Work SignalsStore::Errand::charts(WorkerContext& context) const {
    auto refresh = refreshAt(context);
    for (const auto& row : kit::enumTable<Kind>) {
        const auto kind = row.value;
        auto reading = co_await refresh.chart(kind);
        auto chart = withDayBefore(context.store, kind, std::move(reading));
        tell([kind, chart = std::move(chart)](SignalsStore& store) {
            store.rounds_.note(SignalRound::charts, !chart.reading.error);
            store.held_.charts[kind] = chart;
            emit store.changed();
        });
    }
}

SignalsStore::Changes SignalsStore::Errand::changesIn(LocalStore& store) {
    return {.signing = store.signing().newest(kMostSigningChanges),
            .offers = store.offers().newest(kMostOfferChanges)};
}

void SignalsStore::Errand::tellNews(LocalStore& store) const {
    auto signing = untold<SigningChange>(store, store.signing(), DeskState::kToldSigning, clock_());
    auto offers = untold<OfferChange>(store, store.offers(), DeskState::kToldOffers, clock_());
    if (!signing.empty()) {
        tell([changes = std::move(signing)](SignalsStore& told) {
            emit told.onSigningChanges(changes);
        });
    }
    if (!offers.empty()) {
        tell([changes = std::move(offers)](SignalsStore& told) {
            emit told.onOfferChanges(changes);
        });
    }
}

DeskWorker::Job SignalsStore::Errand::stored(std::vector<std::string> devices) const {
    return [errand = *this, devices = std::move(devices)](WorkerContext& context) {
        LastSignals last(context.store);
        Held held{.updates = last.updates(), .changes = changesIn(context.store)};
        for (const auto& device : devices) held.signing[device] = last.signing(device);
        for (const auto& row : kit::enumTable<Kind>) {
            held.charts[row.value] = withDayBefore(context.store, row.value, last.chart(row.value));
        }
        errand.tell([held = std::move(held)](SignalsStore& store) { store.takeStored(held); });
        errand.tellNews(context.store);
    };
}

}  // namespace app
