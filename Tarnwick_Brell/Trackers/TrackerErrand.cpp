#include "Tarnwick_Brell/Trackers/TrackerErrand.h"

namespace app {

namespace asio = boost::asio;

using kit::StatusFeed;

namespace {

// Some ten platforms have a hundred builds a year each; nobody scrolls back further.
constexpr std::size_t kMostBuilds = 500;

}  // namespace

TrackerRefresh TrackerStore::Errand::refreshAt(WorkerContext& context) const {
    return TrackerRefresh(context.store, context.engine.http(), clock_, serviceAddress_);
}

DeskWorker::LongJob TrackerStore::Errand::round(TrackerRound round, QuoteKeys wanted) const {
    return [errand = *this, round, wanted = std::move(wanted)](WorkerContext& context) -> Work {
        switch (round) {
            case TrackerRound::status: co_await errand.status(context); break;
            case TrackerRound::releases: co_await errand.releases(context); break;
            case TrackerRound::quotes: co_await errand.quotes(context, wanted); break;
            case TrackerRound::board: co_await errand.board(context); break;
            case TrackerRound::events: co_await errand.events(context); break;
        }
        errand.tell([round](TrackerStore& store) { store.end(round); });
    };
}

TrackerStore::Errand::Work TrackerStore::Errand::status(WorkerContext& context) const {
    auto refresh = refreshAt(context);
    auto consumer = co_await refresh.status(StatusFeed::consumer);
    const bool isLoaded = consumer.value.has_value();
    tell([reading = std::move(consumer)](TrackerStore& store) {
        store.held_.consumer = reading;
        store.rounds_.note(TrackerRound::status, !reading.error);
        emit store.statusChanged();
    });
    // Problems are looked for once the consumer status is there, and not before.
    if (!isLoaded) co_return;
    auto developer = co_await refresh.status(StatusFeed::developer);
    tell([reading = std::move(developer)](TrackerStore& store) {
        store.held_.developer = reading;
        store.rounds_.note(TrackerRound::status, !reading.error);
        emit store.statusChanged();
    });
}

TrackerStore::Errand::Work TrackerStore::Errand::releases(WorkerContext& context) const {
    auto refresh = refreshAt(context);
    auto releases = co_await refresh.releases();
    auto builds = context.store.builds().newest(kMostBuilds);
    tell([reading = std::move(releases), builds = std::move(builds)](TrackerStore& store) {
        store.held_.releases = reading;
        store.takeBuilds(builds);
        store.rounds_.note(TrackerRound::releases, !reading.error);
        emit store.releasesChanged();
    });
}

TrackerStore::Errand::Work TrackerStore::Errand::events(WorkerContext& context) const {
    auto refresh = refreshAt(context);
    auto events = co_await refresh.events();
    tell([reading = std::move(events)](TrackerStore& store) {
        store.held_.events = reading;
        store.rounds_.note(TrackerRound::events, !reading.error);
        emit store.eventsChanged();
    });
}

TrackerStore::Errand::Work TrackerStore::Errand::board(WorkerContext& context) const {
    auto refresh = refreshAt(context);
    auto board = co_await refresh.board();
    tell([reading = std::move(board)](TrackerStore& store) {
        store.held_.board = reading;
        store.rounds_.note(TrackerRound::board, !reading.error);
        emit store.boardChanged();
        if (!reading.error && reading.value) emit store.onBoard(*reading.value);
    });
}

void TrackerStore::Errand::tellQuote(const QuoteKey& key, Quote quote) const {
    tell([key, quote = std::move(quote)](TrackerStore& store) {
        store.rounds_.note(TrackerRound::quotes, !quote.error);
        store.takeQuote(key, quote);
    });
}

TrackerStore::Errand::Work TrackerStore::Errand::quotes(WorkerContext& context,
                                                        QuoteKeys keys) const {
    auto refresh = refreshAt(context);
    for (const auto& key : keys) {
        auto quote = co_await refresh.quote(key.symbol, key.range);
        tellQuote(key, std::move(quote));
    }
}

DeskWorker::LongJob TrackerStore::Errand::freshQuotes(QuoteKeys keys,
                                                      std::chrono::seconds freshFor) const {
    return [errand = *this, keys = std::move(keys), freshFor](WorkerContext& context) -> Work {
        LastGood lastGood(context.store);
        QuoteKeys old;
        for (const auto& key : keys) {
            auto stored = lastGood.quote(key.symbol, key.range);
            const auto age = errand.clock_() - stored.fetchedAt.value_or(kit::Instant());
            // A copy from the future was fetched before the clock was set back.
            if (!stored.value || age < std::chrono::seconds(0) || age >= freshFor) {
                old.push_back(key);
            }
            errand.tell([key, stored = std::move(stored)](TrackerStore& store) {
                if (stored.value) store.takeQuote(key, stored);
            });
        }
        co_await errand.quotes(context, old);
    };
}

DeskWorker::Job TrackerStore::Errand::stored(QuoteKeys wanted) const {
    return [errand = *this, wanted = std::move(wanted)](WorkerContext& context) {
        LastGood lastGood(context.store);
        Held held{.consumer = lastGood.status(StatusFeed::consumer),
                  .developer = lastGood.status(StatusFeed::developer),
                  .releases = lastGood.releases(),
                  .events = lastGood.events(),
                  .board = lastGood.board(),
                  .builds = context.store.builds().newest(kMostBuilds)};
        for (const auto& key : wanted) held.quotes[key] = lastGood.quote(key.symbol, key.range);
        errand.tell([held = std::move(held)](TrackerStore& store) { store.takeStored(held); });
    };
}

}  // namespace app
