#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/BodyFetch.h"
#include "NewsroomKit/Records/TextDates.h"
#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Market/BoardQuote.h"
#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit {

/// The maker's service: releases, calendar, quotes. An answer is parsed as a whole or refused:
/// the parsers throw RecordError, which names the place of the fault. Whether a list that has
/// become shorter is believed is decided where the answer before is known.
struct TrackerAPI {
    static constexpr std::size_t kByteLimit = 4'194'304;
    static constexpr std::string_view kServiceAddress = "https://tarnwick-brell.example/";

    std::string base;  ///< ends in "/wp-json/tb-wire/v1/"; see baseAt()
    HTTPClient& http;

    /// The base of the trackers at the service of that address ("https://host/").
    static std::string baseAt(std::string_view serviceAddress);

    std::string releasesAddress() const;
    std::string eventsAddress() const;
    std::string quoteAddress(std::string_view symbol, QuoteRange range) const;
    std::string boardAddress() const;

    // The service writes dates as text; only the times of quotes may be numbers. The parsers
    // with DateForms are for answers that people have written themselves.
    static std::vector<PlatformRelease> parseReleases(std::string_view body);
    static std::vector<PlatformRelease> parseReleases(std::string_view body, DateForms dates);
    static std::vector<AppleCalendarEvent> parseEvents(std::string_view body);
    static std::vector<AppleCalendarEvent> parseEvents(std::string_view body, DateForms dates);
    static StockQuote parseQuote(std::string_view body);
    static std::vector<BoardQuote> parseBoard(std::string_view body);

    // These throw what the parsers throw.
    boost::asio::awaitable<FetchedFile<std::vector<PlatformRelease>>> releases() const;
    boost::asio::awaitable<FetchedFile<std::vector<AppleCalendarEvent>>> events() const;
    boost::asio::awaitable<FetchedFile<StockQuote>> quote(std::string_view symbol,
                                                          QuoteRange range) const;
    boost::asio::awaitable<FetchedFile<std::vector<BoardQuote>>> board() const;
};

}  // namespace kit
