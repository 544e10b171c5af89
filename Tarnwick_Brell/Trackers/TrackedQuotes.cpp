#include <algorithm>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"
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

}  // namespace

std::vector<std::string> TrackerStore::symbols() const {
    std::vector<std::string> symbols{std::string(TrackedFiles::kShare)};
    const auto add = [&](const std::string& symbol) {
        if (std::ranges::find(symbols, symbol) == symbols.end()) symbols.push_back(symbol);
    };
    add(focusSymbol());
    for (const auto& symbol : compared_) add(symbol);
    return symbols;
}

TrackerStore::Files TrackerStore::quoteFiles(QuoteRange range) const {
    Files quotes;
    for (const auto& symbol : symbols()) quotes.emplace_back(files().quote(symbol, range));
    return quotes;
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
