#include <algorithm>
#include <any>
#include <utility>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Trackers/TrackerCache.h"
#include "Tarnwick_Brell/Trackers/TrackerJobs.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

/// Which quotes a TrackerStore fetches and shows.
namespace app {

using kit::QuoteRange;
using kit::StockQuote;

namespace {

// Points of a year are days.
constexpr std::chrono::hours kYearFreshFor{6};
constexpr std::size_t kMostQuotesShown = 100;
// Services give the day's last price a little after the close.
constexpr std::chrono::minutes kAfterClose{15};

/// The first of the times after each day's close that comes after `fetchedAt`.
kit::Instant nextClose(const StockQuote& year, kit::Instant fetchedAt) {
    constexpr std::chrono::days day{1};
    if (!year.sessionClose) return fetchedAt + day;
    const auto close = *year.sessionClose + kAfterClose;
    return fetchedAt < close ? close : close + day * ((fetchedAt - close) / day + 1);
}

bool isYearDue(LocalStore& store, const TrackedFile<StockQuote>& file, kit::Instant now) {
    const auto cached = TrackerCache(store).read(file);
    if (!cached.value || !cached.fetchedAt || *cached.fetchedAt > now) return true;
    return now >= nextClose(*cached.value, *cached.fetchedAt);
}

}  // namespace

std::vector<std::string> TrackerStore::symbols() const {
    std::vector<std::string> symbols{std::string(TrackedFiles::kShare)};
    const auto add = [&](const std::string& symbol) {
        if (std::ranges::find(symbols, symbol) == symbols.end()) symbols.push_back(symbol);
    };
    add(focusSymbol());
    for (const auto& symbol : compared_) add(symbol);
    for (const auto& symbol : watched_) add(symbol);
    return symbols;
}

TrackerStore::Files TrackerStore::quoteFiles(QuoteRange range) const {
    Files quotes;
    for (const auto& symbol : symbols()) quotes.emplace_back(files().quote(symbol, range));
    return quotes;
}

/// Of the share, the focus and the watched symbols, once a day after the close.
TrackerStore::Files TrackerStore::yearFiles() const {
    std::vector<std::string> followed{std::string(TrackedFiles::kShare), focusSymbol()};
    followed.insert(followed.end(), watched_.begin(), watched_.end());
    std::ranges::sort(followed);
    followed.erase(std::ranges::unique(followed).begin(), followed.end());
    Files list;
    for (const auto& symbol : followed) {
        const auto file = files().followedYear(symbol);
        list.emplace_back(file).isDue = [file, clock = clock_](LocalStore& store) {
            return isYearDue(store, file, clock());
        };
    }
    return list;
}

void TrackerStore::fetchStale(Files files, std::chrono::seconds freshFor) {
    const auto jobs = this->jobs();
    worker_.spawn(jobs.fetchStale(std::move(files), freshFor), [jobs](const std::exception& error) {
        jobs.send(
            [sentence = std::string(error.what())](TrackerStore& store) { store.fail(sentence); });
    });
}

/// Quotes of other ranges and symbols stay for a while: people come back to them.
void TrackerStore::limitQuotes(const std::string& latest) {
    values_.limit(TrackedFiles::kQuotePrefix, kMostQuotesShown, [&](const std::string& name) {
        return name == latest || std::ranges::find(polledQuotes_, name) != polledQuotes_.end();
    });
}

void TrackerStore::followMarket() {
    const auto quotes = quotesOf(symbols(), quoteRange());
    const bool isOpen = std::ranges::any_of(quotes, &StockQuote::isOpen);
    scheduler_.setInterval(Tracker::quotes, pollInterval(Tracker::quotes, isOpen));
}

void TrackerStore::save(std::string_view setting, std::string_view value) {
    try {
        defaults_.set(setting, value);
    } catch (const StoreError& error) {
        fail(error.what());
    }
    followSettings();
}

void TrackerStore::setQuoteRange(QuoteRange range) {
    save(SettingKey::kQuoteRange, rawValue(range));
}

void TrackerStore::setFocusSymbol(const std::string& symbol) {
    save(SettingKey::kFocusSymbol, symbol);
}

void TrackerStore::setCompared(std::vector<std::string> symbols) {
    compared_ = std::move(symbols);
    followSettings();
}

void TrackerStore::setWatchedSymbols(std::vector<std::string> symbols) {
    watched_ = std::move(symbols);
    // Before the library is read nothing is fetched; then they are among the wanted ones.
    if (isLoaded()) followSettings();
}

void TrackerStore::checkSymbol(const std::string& symbol,
                               std::function<void(const SymbolAnswer&)> answer) {
    const auto jobs = this->jobs();
    worker_.spawn(jobs.checkSymbol(files().quote(symbol, QuoteRange::day), answer),
                  [jobs, answer](const std::exception& error) {
                      jobs.send([answer, sentence = std::string(error.what())](TrackerStore&) {
                          answer({.error = sentence});
                      });
                  });
}

void TrackerStore::announceQuote(const LoadedFile& fetched) {
    if (fetched.cached.error || !fetched.cached.hasValue) return;
    const auto& quote = std::any_cast<const Quote&>(fetched.cached.value);
    auto value = *quote.value;
    // Services may write a symbol in another way than it was asked for ("BRK-B", "BRK.B").
    const auto range = TrackedFiles::kQuotePrefix.size();
    value.symbol = fetched.name.substr(fetched.name.find('/', range) + 1);
    emit onQuote(value, quote.fetchedAt.value_or(clock_()));
}

void TrackerStore::readQuote(QuoteRange range, std::chrono::seconds freshFor) {
    fetchStale({files().quote(TrackedFiles::kShare, range)}, freshFor);
}

void TrackerStore::readYear() { fetchStale(quoteFiles(QuoteRange::year), kYearFreshFor); }

std::vector<StockQuote> TrackerStore::quotesOf(const std::vector<std::string>& symbols,
                                               QuoteRange range) const {
    std::vector<StockQuote> quotes;
    for (const auto& symbol : symbols) {
        const auto& quote = values_.of(files().quote(symbol, range)).value;
        if (quote) quotes.push_back(*quote);
    }
    return quotes;
}

}  // namespace app
