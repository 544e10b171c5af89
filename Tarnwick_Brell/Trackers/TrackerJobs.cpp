#include "Tarnwick_Brell/Trackers/TrackerJobs.h"

#include <utility>

#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

std::vector<std::string> namesOf(const std::vector<AnyTrackedFile>& files) {
    std::vector<std::string> names;
    for (const auto& file : files) names.push_back(file.name);
    return names;
}

TrackerJobs::TrackerJobs(TrackerStore& store, std::shared_ptr<MainThreadQueue> queue,
                         kit::Clock clock)
    : store_(&store), queue_(std::move(queue)), clock_(std::move(clock)) {}

void TrackerJobs::send(std::function<void(TrackerStore&)> message) const {
    queue_->send([store = store_, message = std::move(message)] { message(*store); });
}

DeskWorker::Job TrackerJobs::load(Files files) const {
    return [jobs = *this, files = std::move(files)](WorkerContext& context) {
        std::vector<LoadedFile> loaded;
        for (const auto& file : files) {
            loaded.push_back({file.tracker, file.name, file.load(context.store)});
        }
        std::vector<std::pair<Tracker, HistoryUpdate>> histories;
        for (const auto tracker : kTrackers) {
            histories.emplace_back(tracker, loadHistory(context.store, tracker));
        }
        jobs.send([loaded = std::move(loaded), histories = std::move(histories)](
                      TrackerStore& store) { store.applyLoaded(loaded, histories); });
        jobs.announceChanges(context.store);
    };
}

DeskWorker::LongJob TrackerJobs::fetch(Tracker tracker, Files files) const {
    return [jobs = *this, tracker, files = std::move(files)](WorkerContext& context) -> Work {
        co_await jobs.fetchAll(context, files);
        jobs.announceChanges(context.store);
        jobs.send([tracker](TrackerStore& store) { store.finish(tracker); });
    };
}

DeskWorker::LongJob TrackerJobs::fetchStale(Files files, std::chrono::seconds freshFor) const {
    return [jobs = *this, files = std::move(files), freshFor](WorkerContext& context) -> Work {
        Files stale;
        for (const auto& file : files) {
            LoadedFile loaded{file.tracker, file.name, file.load(context.store)};
            const auto age = jobs.clock_() - loaded.cached.fetchedAt.value_or(kit::Instant());
            // A copy from the future was fetched before the clock was set back.
            const bool isFresh =
                loaded.cached.hasValue && age >= std::chrono::seconds(0) && age < freshFor;
            if (!isFresh) stale.push_back(file);
            if (!loaded.cached.hasValue) continue;
            jobs.send([loaded = std::move(loaded)](TrackerStore& store) { store.show(loaded); });
        }
        co_await jobs.fetchAll(context, stale);
    };
}

// One after another: most of the servers are not ours.
TrackerJobs::Work TrackerJobs::fetchAll(WorkerContext& context, const Files& files) const {
    TrackerFetcher fetcher(context.store, context.stack.http(), clock_);
    for (const auto& file : files) {
        if (file.isDue && !file.isDue(context.store)) continue;
        auto cached = co_await file.fetch(fetcher);
        LoadedFile fetched{file.tracker, file.name, std::move(cached)};
        const bool stops = file.comesFirst && !fetched.cached.hasValue;
        send([fetched = std::move(fetched), history = loadHistory(context.store, file.tracker)](
                 TrackerStore& store) { store.applyFetched(fetched, history); });
        if (stops) break;
    }
}

DeskWorker::LongJob TrackerJobs::checkSymbol(
    TrackedFile<kit::StockQuote> file, std::function<void(const SymbolAnswer&)> answer) const {
    return [jobs = *this, file = std::move(file),
            answer = std::move(answer)](WorkerContext& context) -> Work {
        SymbolAnswer found;
        TrackerFetcher fetcher(context.store, context.stack.http(), jobs.clock_);
        const auto cached = co_await fetcher.fetch(file);
        if (!cached.error && cached.value) {
            found = {.kind = SymbolAnswer::Kind::known,
                     .symbol = cached.value->symbol,
                     .name = cached.value->name};
        } else {
            found.error = cached.error.value_or("");
            if (found.error.ends_with(file.notFoundText)) found.kind = SymbolAnswer::Kind::unknown;
        }
        jobs.send([answer, found = std::move(found)](TrackerStore&) { answer(found); });
    };
}

void TrackerJobs::announceChanges(LocalStore& store) const {
    const auto changes = markAnnounced(store, clock_());
    sendLogState(store);
    if (changes.isEmpty()) return;
    send([changes](TrackerStore& target) {
        if (!changes.signing.empty()) emit target.onSigningChanges(changes.signing);
        if (!changes.offers.empty()) emit target.onOfferChanges(changes.offers);
        if (!changes.logged.empty()) emit target.onSignals(changes.logged);
    });
}

void TrackerJobs::sendLogState(LocalStore& store) const {
    send([log = loadLogState(store)](TrackerStore& target) { target.applyLogState(log); });
}

DeskWorker::Job TrackerJobs::markLogLookedAt() const {
    return [jobs = *this](WorkerContext& context) {
        auto& store = context.store;
        store.state().setNumber(DeskState::kLookedAtSignal, store.signalLog().lastNumber());
        jobs.sendLogState(store);
    };
}

}  // namespace app
