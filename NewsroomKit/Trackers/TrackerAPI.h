#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Records/TextDates.h"
#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Market/BoardQuote.h"
#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace kit {

/// The maker's service: releases, calendar, quotes. Every answer is taken whole or not at all;
/// the parsers throw RecordError, which names the place of the fault. They take what the
/// service says: whether a list that has become shorter is to be believed is for those to
/// decide who know the one before.
struct TrackerAPI {
    static constexpr std::size_t kByteLimit = 4'194'304;
    static constexpr std::string_view kServiceAddress = "https://tarnwick-brell.example/";

    std::string base;  ///< ends in "/wp-json/tb-wire/v1/"; see baseAt()
    HTTPClient& http;

    /// Where the trackers are at the service of that address ("https://host/").
    static std::string baseAt(std::string_view serviceAddress);

    std::string releasesAddress() const;
    std::string eventsAddress() const;
    std::string quoteAddress(std::string_view symbol, QuoteRange range) const;
    std::string boardAddress() const;

    // The service writes dates as text; only the times of quotes may be numbers. The readings
    // with DateForms are for answers that people have written themselves.
    static std::vector<PlatformRelease> parseReleases(std::string_view body);
    static std::vector<PlatformRelease> parseReleases(std::string_view body, DateForms dates);
    static std::vector<AppleCalendarEvent> parseEvents(std::string_view body);
    static std::vector<AppleCalendarEvent> parseEvents(std::string_view body, DateForms dates);
    static StockQuote parseQuote(std::string_view body);
    static std::vector<BoardQuote> parseBoard(std::string_view body);

    // What these throw is the parser's.
    boost::asio::awaitable<FetchResult<std::vector<PlatformRelease>>> releases() const;
    boost::asio::awaitable<FetchResult<std::vector<AppleCalendarEvent>>> events() const;
    boost::asio::awaitable<FetchResult<StockQuote>> quote(std::string symbol,
                                                          QuoteRange range) const;
    boost::asio::awaitable<FetchResult<std::vector<BoardQuote>>> board() const;
};

}  // namespace kit
