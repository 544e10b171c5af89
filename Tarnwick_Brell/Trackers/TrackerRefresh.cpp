#include "Tarnwick_Brell/Trackers/TrackerRefresh.h"

#include <utility>

#include "NewsroomKit/Trackers/Status/AppleStatusAPI.h"

namespace app {

using kit::AppleStatusAPI;
using kit::StatusFeed;
using kit::StockQuote;
using kit::TrackerAPI;

namespace {

// People look at many symbols once; the desk itself needs a handful.
constexpr std::size_t kQuotesKept = 200;

}  // namespace

TrackerRefresh::TrackerRefresh(LocalStore& store, kit::HTTPClient& http, kit::Clock clock,
                               std::string_view serviceAddress)
    : store_(store),
      api_{.base = TrackerAPI::baseAt(serviceAddress), .http = http},
      fetch_(store, http, std::move(clock)) {}

TrackerRefresh::Result<TrackerRefresh::Services> TrackerRefresh::status(StatusFeed audience) {
    return fetch_.refresh<Services>(
        statusFile(audience), {AppleStatusAPI::address(audience), AppleStatusAPI::kByteLimit},
        [this, audience](const auto&, const Services& services, kit::Instant now) {
            store_.incidents().note(audience, services, now);
        });
}

TrackerRefresh::Result<std::vector<kit::PlatformRelease>> TrackerRefresh::releases() {
    return fetch_.refresh<std::vector<kit::PlatformRelease>>(
        releasesFile(), {api_.releasesAddress(), TrackerAPI::kByteLimit},
        [this](const auto&, const auto& releases, kit::Instant now) {
            store_.builds().note(releases, now);
        });
}

TrackerRefresh::Result<std::vector<kit::AppleCalendarEvent>> TrackerRefresh::events() {
    return fetch_.refresh(eventsFile(), {api_.eventsAddress(), TrackerAPI::kByteLimit}, {});
}

TrackerRefresh::Result<StockQuote> TrackerRefresh::quote(std::string_view symbol,
                                                         kit::QuoteRange range) {
    return fetch_.refresh<StockQuote>(
        quoteFile(symbol, range), {api_.quoteAddress(symbol, range), TrackerAPI::kByteLimit},
        [this](const auto&, const auto&, kit::Instant) {
            store_.trackerCopies().keepLastAsked(kQuoteNames, kQuotesKept);
        });
}

TrackerRefresh::Result<std::vector<kit::BoardQuote>> TrackerRefresh::board() {
    return fetch_.refresh(boardFile(), {api_.boardAddress(), TrackerAPI::kByteLimit}, {});
}

}  // namespace app
