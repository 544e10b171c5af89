#include "Tarnwick_Brell/Trackers/TrackerStore.h"

#include <algorithm>
#include <utility>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Trackers/TrackerErrand.h"

namespace app {

using kit::Instant;
using kit::QuoteRange;
using kit::StockQuote;

namespace {

// Points of a year are days.
constexpr std::chrono::hours kYearFreshFor{6};
constexpr std::size_t kMostQuotesHeld = 100;

}  // namespace

TrackerStore::TrackerStore(DeskWorker& worker, Defaults& defaults, kit::Clock clock)
    : worker_(worker),
      defaults_(defaults),
      clock_(std::move(clock)),
      news_(defaults),
      rounds_(clock_, {.beforeLook = [this] { followWishes(); },
                       .begin = [this](TrackerRound round) { begin(round); },
                       .changed = [this] { emit refreshChanged(); }}),
      mailbox_(std::make_shared<MainThreadQueue>()) {
    news_.callbacks = {
        .onServiceProblem = [this](const auto& report) { emit onServiceProblem(report); },
        .onServiceRestored = [this](const auto& service) { emit onServiceRestored(service); },
        .onNewRelease = [this](const auto& build) { emit onNewRelease(build); },
        .onFailed = [this](const auto& sentence) { fail(sentence); }};
}

// The worker goes on with what has been asked for; nobody is told any more.
TrackerStore::~TrackerStore() { mailbox_->close(); }

TrackerStore::Errand TrackerStore::errand() { return {*this, defaults_.serviceAddress()}; }

void TrackerStore::start() {
    wanted_ = wantedQuotes(quoteRange());
    load();
}

void TrackerStore::load() {
    const auto errand = this->errand();
    worker_.post(errand.stored(wanted_), [errand](const std::exception& error) {
        errand.tell([sentence = std::string(error.what())](TrackerStore& store) {
            store.fail(sentence);
            store.beginSchedule();
        });
    });
}

void TrackerStore::takeStored(Held stored) {
    bool hasNew = false;
    const auto takeOver = [&](auto& slot, auto& found) {
        if (slot.value && found.fetchedAt <= slot.fetchedAt) return false;
        slot = std::move(found);
        rounds_.noteStored(slot.fetchedAt);
        hasNew = true;
        return true;
    };
    const bool hasConsumer = takeOver(held_.consumer, stored.consumer);
    const bool hasDeveloper = takeOver(held_.developer, stored.developer);
    if (hasConsumer || hasDeveloper) emit statusChanged();
    const bool hasBuilds = takeBuilds(std::move(stored.builds));
    if (takeOver(held_.releases, stored.releases) || hasBuilds) emit releasesChanged();
    if (takeOver(held_.events, stored.events)) emit eventsChanged();
    if (takeOver(held_.board, stored.board)) emit boardChanged();
    bool hasQuote = false;
    for (auto& [key, quote] : stored.quotes) hasQuote |= takeOver(held_.quotes[key], quote);
    if (hasQuote) emit quotesChanged();
    if (hasNew) emit refreshChanged();
    beginSchedule();
}

void TrackerStore::beginSchedule() {
    if (rounds_.haveStarted()) return;
    TrackerSchedule::Ages ages;
    const auto note = [&](TrackerRound round, const auto&... readings) {
        // The oldest counts; what was never fetched is due.
        const auto oldest = std::min({readings.fetchedAt...});
        if (oldest) ages.emplace(round, *oldest);
    };
    note(TrackerRound::status, held_.consumer, held_.developer);
    note(TrackerRound::releases, held_.releases);
    note(TrackerRound::quotes, quote(), focusQuote());
    note(TrackerRound::board, held_.board);
    note(TrackerRound::events, held_.events);
    rounds_.start(ages);
    noteMarket();
    rounds_.look();
}

void TrackerStore::begin(TrackerRound round) {
    const auto errand = this->errand();
    const auto failed = [errand, round](const std::exception& error) {
        errand.tell([round, sentence = std::string(error.what())](TrackerStore& store) {
            store.rounds_.note(round, false);
            store.fail(sentence);
            store.end(round);
        });
    };
    worker_.spawn(errand.round(round, wanted_), failed);
}

void TrackerStore::end(TrackerRound round) {
    if (rounds_.end(round).good > 0) {
        lastFailure_.clear();
        if (round == TrackerRound::status) {
            news_.look(held_.consumer.value, held_.developer.value);
        } else if (round == TrackerRound::releases) {
            news_.look(*held_.releases.value);
        }
    }
    emit refreshChanged();
    rounds_.look();
}

void TrackerStore::fail(const std::string& sentence) {
    // The same one would come with every round.
    if (std::exchange(lastFailure_, sentence) != sentence) {
        emit failed(QString::fromStdString(sentence));
    }
}

void TrackerStore::refresh(TrackerRound round) { rounds_.ask(round); }

void TrackerStore::refreshAll() {
    for (const auto round : kTrackerRounds) refresh(round);
}

void TrackerStore::networkIsBack() { rounds_.networkIsBack(); }

TrackerStore::QuoteKeys TrackerStore::wantedQuotes(QuoteRange range) const {
    QuoteKeys keys{{std::string(kShare), range}, {focusSymbol(), range}};
    for (const auto& symbol : compared_) keys.push_back({symbol, range});
    QuoteKeys once;
    for (auto& key : keys) {
        if (std::ranges::find(once, key) == once.end()) once.push_back(std::move(key));
    }
    return once;
}

void TrackerStore::followWishes() {
    auto wanted = wantedQuotes(quoteRange());
    if (wanted == wanted_) return;
    wanted_ = std::move(wanted);
    fetchQuotes(wanted_, kQuoteFreshFor);
    emit quotesChanged();
}

void TrackerStore::fetchQuotes(QuoteKeys keys, std::chrono::seconds freshFor) {
    const auto errand = this->errand();
    worker_.spawn(errand.freshQuotes(std::move(keys), freshFor),
                  [errand](const std::exception& error) {
                      errand.tell([sentence = std::string(error.what())](TrackerStore& store) {
                          store.fail(sentence);
                      });
                  });
}

void TrackerStore::takeQuote(const QuoteKey& key, Quote quote) {
    held_.quotes[key] = std::move(quote);
    if (held_.quotes.size() > kMostQuotesHeld) {
        std::erase_if(held_.quotes, [&](const auto& entry) {
            return entry.first != key && std::ranges::find(wanted_, entry.first) == wanted_.end();
        });
    }
    noteMarket();
    emit quotesChanged();
}

// Each look at the library has all that the one before had.
bool TrackerStore::takeBuilds(std::vector<SeenBuild> builds) {
    if (builds == held_.builds) return false;
    held_.builds = std::move(builds);
    return true;
}

void TrackerStore::noteMarket() {
    if (auto* schedule = rounds_.schedule()) {
        schedule->setMarketOpen(std::ranges::any_of(present(wanted_), &StockQuote::isOpen));
    }
}

void TrackerStore::setQuoteRange(QuoteRange range) {
    try {
        defaults_.set(SettingKey::kQuoteRange, rawValue(range));
    } catch (const StoreError& error) {
        fail(error.what());
    }
    followWishes();
}

void TrackerStore::setFocusSymbol(const std::string& symbol) {
    try {
        defaults_.set(SettingKey::kFocusSymbol, symbol);
    } catch (const StoreError& error) {
        fail(error.what());
    }
    followWishes();
}

void TrackerStore::setCompared(std::vector<std::string> symbols) {
    compared_ = std::move(symbols);
    followWishes();
}

void TrackerStore::readQuote(QuoteRange range, std::chrono::seconds freshFor) {
    fetchQuotes({{std::string(kShare), range}}, freshFor);
}

void TrackerStore::readYear() { fetchQuotes(wantedQuotes(QuoteRange::year), kYearFreshFor); }

const TrackerStore::Quote& TrackerStore::held(const QuoteKey& key) const {
    static const Quote none;
    const auto entry = held_.quotes.find(key);
    return entry == held_.quotes.end() ? none : entry->second;
}

const TrackerStore::Quote& TrackerStore::quote() const { return quote(quoteRange()); }

const TrackerStore::Quote& TrackerStore::quote(QuoteRange range) const {
    return held({std::string(kShare), range});
}

const TrackerStore::Quote& TrackerStore::focusQuote() const {
    return held({focusSymbol(), quoteRange()});
}

std::vector<StockQuote> TrackerStore::present(const QuoteKeys& keys) const {
    std::vector<StockQuote> quotes;
    for (const auto& key : keys) {
        if (const auto& quote = held(key).value) quotes.push_back(*quote);
    }
    return quotes;
}

std::vector<StockQuote> TrackerStore::comparisonQuotes() const {
    QuoteKeys keys;
    for (const auto& symbol : compared_) keys.push_back({symbol, quoteRange()});
    return present(keys);
}

std::vector<StockQuote> TrackerStore::yearQuotes() const {
    return present(wantedQuotes(QuoteRange::year));
}

std::optional<Instant> TrackerStore::yearRead() const { return quote(QuoteRange::year).fetchedAt; }

}  // namespace app
