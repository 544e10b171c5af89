#include "Tarnwick_Brell/Trackers/TrackerRefresh.h"

#include <utility>

#include "NewsroomKit/Trackers/AppleStatusAPI.h"

namespace desk {

using newsroom::AppleStatusAPI;
using newsroom::StatusAudience;
using newsroom::StockQuote;
using newsroom::TrackerAPI;

namespace {

// People look at many symbols once; the desk itself needs a handful.
constexpr std::size_t kQuotesKept = 200;

}  // namespace

TrackerRefresh::TrackerRefresh(LocalStore& store, newsroom::HTTPClient& http, Clock clock,
                               std::string_view serviceAddress)
    : store_(store),
      api_{.base = TrackerAPI::baseAt(serviceAddress), .http = http},
      fetch_(store, http, std::move(clock)) {}

TrackerRefresh::Result<TrackerRefresh::Services> TrackerRefresh::status(StatusAudience audience) {
    return fetch_.refresh<Services>(
        statusFile(audience), {AppleStatusAPI::address(audience), AppleStatusAPI::kByteLimit},
        [this, audience](const auto&, const Services& services, newsroom::Instant now) {
            store_.incidents().note(audience, services, now);
        });
}

TrackerRefresh::Result<std::vector<newsroom::PlatformRelease>> TrackerRefresh::releases() {
    return fetch_.refresh<std::vector<newsroom::PlatformRelease>>(
        releasesFile(), {api_.releasesAddress(), TrackerAPI::kByteLimit},
        [this](const auto&, const auto& releases, newsroom::Instant now) {
            store_.builds().note(releases, now);
        });
}

TrackerRefresh::Result<std::vector<newsroom::AppleCalendarEvent>> TrackerRefresh::events() {
    return fetch_.refresh(eventsFile(), {api_.eventsAddress(), TrackerAPI::kByteLimit}, {});
}

TrackerRefresh::Result<StockQuote> TrackerRefresh::quote(std::string_view symbol,
                                                         newsroom::QuoteRange range) {
    return fetch_.refresh<StockQuote>(
        quoteFile(symbol, range), {api_.quoteAddress(symbol, range), TrackerAPI::kByteLimit},
        [this](const auto&, const auto&, newsroom::Instant) {
            store_.trackerCopies().keepLastAsked(kQuoteNames, kQuotesKept);
        });
}

TrackerRefresh::Result<std::vector<newsroom::BoardQuote>> TrackerRefresh::board() {
    return fetch_.refresh(boardFile(), {api_.boardAddress(), TrackerAPI::kByteLimit}, {});
}

}  // namespace desk
