#include "NewsroomKit/Trackers/TrackerAPI.h"

#include <algorithm>
#include <map>
#include <optional>

#include <boost/url/encode.hpp>
#include <boost/url/rfc/unreserved_chars.hpp>

namespace kit {

namespace urls = boost::urls;

struct ReleaseChannels {
    std::optional<SoftwareRelease> general{};
    std::optional<SoftwareRelease> beta{};
};

template <>
struct JSONFields<ReleaseChannels> {
    static constexpr auto fields = std::tuple{
        field(rawValue(ReleaseChannel::general), &ReleaseChannels::general),
        field(rawValue(ReleaseChannel::beta), &ReleaseChannels::beta),
    };
};

struct ReleasesResponse {
    std::map<std::string, ReleaseChannels> systems{};
};

template <>
struct JSONFields<ReleasesResponse> {
    static constexpr auto fields = std::tuple{field("systems", &ReleasesResponse::systems)};
};

struct EventsResponse {
    std::vector<AppleCalendarEvent> events{};
};

template <>
struct JSONFields<EventsResponse> {
    static constexpr auto fields = std::tuple{field("events", &EventsResponse::events)};
};

struct BoardResponse {
    std::vector<BoardQuote> quotes{};
};

template <>
struct JSONFields<BoardResponse> {
    static constexpr auto fields = std::tuple{field("quotes", &BoardResponse::quotes)};
};

namespace {

template <class Response>
Response responseIn(std::string_view body, DateForms dates) {
    const auto value = parseJSON(body);
    if (dates == DateForms::text) requireTextDates<Response>(value);
    return decode<Response>(value);
}

/// Symbols such as "^GSPC" and "BRK/B" must not become part of the address's own syntax.
std::string queryValue(std::string_view text) { return urls::encode(text, urls::unreserved_chars); }

}  // namespace

std::string TrackerAPI::baseAt(std::string_view serviceAddress) {
    while (serviceAddress.ends_with('/')) serviceAddress.remove_suffix(1);
    return std::string(serviceAddress) + "/wp-json/tb-wire/v1/";
}

std::string TrackerAPI::releasesAddress() const { return base + "releases"; }
std::string TrackerAPI::eventsAddress() const { return base + "events"; }
std::string TrackerAPI::boardAddress() const { return base + "quotes"; }

std::string TrackerAPI::quoteAddress(std::string_view symbol, QuoteRange range) const {
    return base + "quote?range=" + std::string(rawValue(range)) + "&symbol=" + queryValue(symbol);
}

std::vector<PlatformRelease> TrackerAPI::parseReleases(std::string_view body, DateForms dates) {
    std::vector<PlatformRelease> releases;
    for (auto& [platform, channels] : responseIn<ReleasesResponse>(body, dates).systems) {
        releases.push_back({.platform = platform,
                            .current = std::move(channels.general),
                            .beta = std::move(channels.beta)});
    }
    std::ranges::sort(releases, standsBefore, &PlatformRelease::platform);
    return releases;
}

std::vector<AppleCalendarEvent> TrackerAPI::parseEvents(std::string_view body, DateForms dates) {
    return responseIn<EventsResponse>(body, dates).events;
}

std::vector<PlatformRelease> TrackerAPI::parseReleases(std::string_view body) {
    return parseReleases(body, DateForms::text);
}

std::vector<AppleCalendarEvent> TrackerAPI::parseEvents(std::string_view body) {
    return parseEvents(body, DateForms::text);
}

StockQuote TrackerAPI::parseQuote(std::string_view body) {
    auto quote = responseIn<StockQuote>(body, DateForms::textAndNumbers);
    if (!quote.hasFinitePrices()) throw RecordError("", "a price is not a finite number");
    return quote;
}

std::vector<BoardQuote> TrackerAPI::parseBoard(std::string_view body) {
    return responseIn<BoardResponse>(body, DateForms::textAndNumbers).quotes;
}

boost::asio::awaitable<FetchedFile<std::vector<PlatformRelease>>> TrackerAPI::releases() const {
    return fetchFile<std::vector<PlatformRelease>>(http, releasesAddress(), kByteLimit,
                                                   parseReleases);
}

boost::asio::awaitable<FetchedFile<std::vector<AppleCalendarEvent>>> TrackerAPI::events() const {
    return fetchFile<std::vector<AppleCalendarEvent>>(http, eventsAddress(), kByteLimit,
                                                      parseEvents);
}

boost::asio::awaitable<FetchedFile<StockQuote>> TrackerAPI::quote(std::string_view symbol,
                                                                  QuoteRange range) const {
    return fetchFile(http, quoteAddress(symbol, range), kByteLimit, parseQuote);
}

boost::asio::awaitable<FetchedFile<std::vector<BoardQuote>>> TrackerAPI::board() const {
    return fetchFile(http, boardAddress(), kByteLimit, parseBoard);
}

}  // namespace kit
