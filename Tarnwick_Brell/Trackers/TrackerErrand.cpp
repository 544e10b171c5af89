#include "Tarnwick_Brell/Trackers/TrackerErrand.h"

namespace desk {

namespace asio = boost::asio;

using newsroom::StatusAudience;

namespace {

// Some ten platforms have a hundred builds a year each; nobody scrolls back further.
constexpr std::size_t kMostBuilds = 500;

}  // namespace

TrackerRefresh TrackerStore::Errand::refreshAt(Bench& bench) const {
    return TrackerRefresh(bench.store, bench.engine.http(), clock_, serviceAddress_);
}

DeskWorker::LongJob TrackerStore::Errand::round(TrackerRound round, QuoteKeys wanted) const {
    return [errand = *this, round, wanted = std::move(wanted)](Bench& bench) -> Work {
        switch (round) {
            case TrackerRound::status: co_await errand.status(bench); break;
            case TrackerRound::releases: co_await errand.releases(bench); break;
            case TrackerRound::quotes: co_await errand.quotes(bench, wanted); break;
            case TrackerRound::board: co_await errand.board(bench); break;
            case TrackerRound::events: co_await errand.events(bench); break;
        }
        errand.tell([round](TrackerStore& store) { store.end(round); });
    };
}

TrackerStore::Errand::Work TrackerStore::Errand::status(Bench& bench) const {
    auto refresh = refreshAt(bench);
    auto consumer = co_await refresh.status(StatusAudience::consumer);
    const bool isLoaded = consumer.value.has_value();
    tell([reading = std::move(consumer)](TrackerStore& store) {
        store.held_.consumer = reading;
        store.rounds_.note(TrackerRound::status, !reading.error);
        emit store.statusChanged();
    });
    // Problems are looked for once the consumer status is there, and not before.
    if (!isLoaded) co_return;
    auto developer = co_await refresh.status(StatusAudience::developer);
    tell([reading = std::move(developer)](TrackerStore& store) {
        store.held_.developer = reading;
        store.rounds_.note(TrackerRound::status, !reading.error);
        emit store.statusChanged();
    });
}

TrackerStore::Errand::Work TrackerStore::Errand::releases(Bench& bench) const {
    auto refresh = refreshAt(bench);
    auto releases = co_await refresh.releases();
    auto builds = bench.store.builds().newest(kMostBuilds);
    tell([reading = std::move(releases), builds = std::move(builds)](TrackerStore& store) {
        store.held_.releases = reading;
        store.takeBuilds(builds);
        store.rounds_.note(TrackerRound::releases, !reading.error);
        emit store.releasesChanged();
    });
}

TrackerStore::Errand::Work TrackerStore::Errand::events(Bench& bench) const {
    auto refresh = refreshAt(bench);
    auto events = co_await refresh.events();
    tell([reading = std::move(events)](TrackerStore& store) {
        store.held_.events = reading;
        store.rounds_.note(TrackerRound::events, !reading.error);
        emit store.eventsChanged();
    });
}

TrackerStore::Errand::Work TrackerStore::Errand::board(Bench& bench) const {
    auto refresh = refreshAt(bench);
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

TrackerStore::Errand::Work TrackerStore::Errand::quotes(Bench& bench, QuoteKeys keys) const {
    auto refresh = refreshAt(bench);
    for (const auto& key : keys) {
        auto quote = co_await refresh.quote(key.symbol, key.range);
        tellQuote(key, std::move(quote));
    }
}

DeskWorker::LongJob TrackerStore::Errand::freshQuotes(QuoteKeys keys,
                                                      std::chrono::seconds freshFor) const {
    return [errand = *this, keys = std::move(keys), freshFor](Bench& bench) -> Work {
        LastGood lastGood(bench.store);
        QuoteKeys old;
        for (const auto& key : keys) {
            auto stored = lastGood.quote(key.symbol, key.range);
            const auto age = errand.clock_() - stored.fetchedAt.value_or(newsroom::Instant());
            // A copy from the future was fetched before the clock was set back.
            if (!stored.value || age < std::chrono::seconds(0) || age >= freshFor) {
                old.push_back(key);
            }
            errand.tell([key, stored = std::move(stored)](TrackerStore& store) {
                if (stored.value) store.takeQuote(key, stored);
            });
        }
        co_await errand.quotes(bench, old);
    };
}

DeskWorker::Job TrackerStore::Errand::stored(QuoteKeys wanted) const {
    return [errand = *this, wanted = std::move(wanted)](Bench& bench) {
        LastGood lastGood(bench.store);
        Held held{.consumer = lastGood.status(StatusAudience::consumer),
                  .developer = lastGood.status(StatusAudience::developer),
                  .releases = lastGood.releases(),
                  .events = lastGood.events(),
                  .board = lastGood.board(),
                  .builds = bench.store.builds().newest(kMostBuilds)};
        for (const auto& key : wanted) held.quotes[key] = lastGood.quote(key.symbol, key.range);
        errand.tell([held = std::move(held)](TrackerStore& store) { store.takeStored(held); });
    };
}

}  // namespace desk
