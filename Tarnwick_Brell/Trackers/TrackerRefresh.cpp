#include "Tarnwick_Brell/Trackers/TrackerRefresh.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include <boost/asio/this_coro.hpp>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Trackers/AppleStatusAPI.h"
#include "Tarnwick_Brell/Trackers/ListDoubts.h"

namespace desk {

namespace asio = boost::asio;

using newsroom::AppleStatusAPI;
using newsroom::FetchError;
using newsroom::StatusAudience;
using newsroom::StockQuote;
using newsroom::TrackerAPI;
using newsroom::URLError;

namespace {

// People look at many symbols once; the desk itself needs a handful.
constexpr std::size_t kQuotesKept = 200;

constexpr std::chrono::seconds kLongestPause{3600};

std::string hostOf(const std::string& address) {
    const auto parsed = newsroom::WebAddress::parse(address);
    return parsed ? parsed->host : std::string();
}

template <class T>
std::string sentence(const TrackedFile<T>& file, const FetchError& error) {
    constexpr newsroom::HTTPClientError notFound{.kind = newsroom::HTTPClientError::Kind::status,
                                                 .statusCode = 404};
    const bool isAbsent = !file.absence.empty() && error == FetchError(notFound);
    return isAbsent ? file.absence : error.description();
}

template <class T>
bool isRefused(const TrackedFile<T>& file, const T& fresh, const std::optional<T>& latest) {
    if (!saysNothing(fresh) || file.emptiness == Emptiness::always) return false;
    return file.emptiness == Emptiness::never || (latest && !saysNothing(*latest));
}

}  // namespace

TrackerRefresh::TrackerRefresh(LocalStore& store, newsroom::HTTPClient& http, Clock clock,
                               std::string_view serviceAddress)
    : store_(store),
      clock_(std::move(clock)),
      api_{.base = TrackerAPI::baseAt(serviceAddress), .http = http},
      lastGood_(store) {}

TrackerRefresh::Result<TrackerRefresh::Services> TrackerRefresh::status(StatusAudience audience) {
    return refresh<Services>(statusFile(audience),
                             {AppleStatusAPI::address(audience), AppleStatusAPI::kByteLimit},
                             [this, audience](const Services& services, newsroom::Instant now) {
                                 store_.incidents().note(audience, services, now);
                             });
}

TrackerRefresh::Result<std::vector<PlatformRelease>> TrackerRefresh::releases() {
    return refresh<std::vector<PlatformRelease>>(
        releasesFile(), {api_.releasesAddress(), TrackerAPI::kByteLimit},
        [this](const auto& releases, newsroom::Instant now) {
            store_.builds().note(releases, now);
        });
}

TrackerRefresh::Result<std::vector<newsroom::AppleCalendarEvent>> TrackerRefresh::events() {
    return refresh(eventsFile(), {api_.eventsAddress(), TrackerAPI::kByteLimit}, {});
}

TrackerRefresh::Result<StockQuote> TrackerRefresh::quote(std::string_view symbol,
                                                         newsroom::QuoteRange range) {
    return refresh<StockQuote>(quoteFile(symbol, range),
                               {api_.quoteAddress(symbol, range), TrackerAPI::kByteLimit},
                               [this](const auto&, newsroom::Instant) {
                                   store_.trackerCopies().keepLastAsked(kQuoteNames, kQuotesKept);
                               });
}

TrackerRefresh::Result<std::vector<newsroom::BoardQuote>> TrackerRefresh::board() {
    return refresh(boardFile(), {api_.boardAddress(), TrackerAPI::kByteLimit}, {});
}

template <class T>
TrackerRefresh::Result<T> TrackerRefresh::refresh(TrackedFile<T> file, Request request,
                                                  Log<T> log) {
    co_await asio::this_coro::throw_if_cancelled(false);
    if (const auto pause = pauseText(request.address)) co_return unblamed(file, *pause);

    const auto fetched =
        co_await newsroom::fetchBody(api_.http, request.address, request.byteLimit);
    if (fetched.body) co_return keep(file, fetched.body.value(), log);
    if (fetched.record.retryAfter) leaveAlone(request.address, *fetched.record.retryAfter);
    const auto& error = fetched.body.error();
    const bool isOurs = error == FetchError(URLError::cancelled) ||
                        error == FetchError(URLError::notConnectedToInternet);
    co_return isOurs ? unblamed(file, error.description()) : failed(file, sentence(file, error));
}

template <class T>
TrackerReading<T> TrackerRefresh::keep(const TrackedFile<T>& file, const std::string& body,
                                       const Log<T>& log) {
    std::optional<T> fresh;
    try {
        fresh = file.parse(body);
    } catch (const newsroom::RecordError& error) {
        return failed(file, "The answer does not read (" + std::string(error.what()) + ").");
    }
    bool lacksSomething = false;
    if constexpr (std::is_same_v<T, StockQuote>) {
        if (!file.isWanted(*fresh)) {
            return failed(file, "The server answered with another quote.");
        }
    } else {
        const auto latest = lastGood_.copy(file.name, file.parse);
        if (isRefused(file, *fresh, latest)) return failed(file, "The answer was an empty list.");
        lacksSomething = latest && !vanished(*latest, *fresh).empty();
    }
    const auto now = clock_();
    auto& copies = store_.trackerCopies();
    auto transaction = store_.transaction();
    const auto nameBefore = LastGood::nameBefore(file.name);
    if (lacksSomething) {
        copies.keep(nameBefore, copies.find(file.name).value());
    } else {
        copies.drop(nameBefore);
    }
    copies.keep(file.name, {body, now});
    copies.setHealth(file.name, {.lastAttempt = now, .lastSuccess = now});
    auto reading = lastGood_.read(file);
    if (log) log(reading.value.value(), now);
    transaction.commit();
    return reading;
}

template <class T>
TrackerReading<T> TrackerRefresh::failed(const TrackedFile<T>& file, std::string error) {
    auto transaction = store_.transaction();
    auto health = store_.trackerCopies().health(file.name);
    ++health.failures;
    health.lastAttempt = clock_();
    health.lastError = file.title + ": " + error;
    store_.trackerCopies().setHealth(file.name, health);
    transaction.commit();
    return lastGood_.read(file);
}

/// The server is not to blame, so nothing is held against the tracker.
template <class T>
TrackerReading<T> TrackerRefresh::unblamed(const TrackedFile<T>& file, std::string error) {
    auto reading = lastGood_.read(file);
    reading.error = file.title + ": " + error;
    return reading;
}

std::optional<std::string> TrackerRefresh::pauseText(const std::string& address) {
    const auto now = clock_();
    const auto pauses = store_.hostPauses().load(now);
    const auto pause = pauses.find(hostOf(address));
    if (pause == pauses.end()) return std::nullopt;
    return HostPauses::sentence(pause->second, now);
}

void TrackerRefresh::leaveAlone(const std::string& address, std::chrono::seconds wanted) {
    if (wanted <= std::chrono::seconds(0)) return;
    store_.hostPauses().set(hostOf(address), clock_() + std::min(wanted, kLongestPause));
}

}  // namespace desk
