#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Trackers/BodyFetch.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/LastGood.h"

namespace desk {

/// Fetches trackers and keeps what came, when it is good: the answer itself for the next
/// start, incidents and builds in their logs. What is not good leaves all that as it was.
///
/// Lists are not believed to have become shorter before a second answer says so (see
/// ListDoubts.h); until then the value has what is missing, from the answer before, and so
/// has what the logs are told.
///
/// The object must outlive its coroutines. They throw StoreError.
class TrackerRefresh {
public:
    using Clock = std::function<newsroom::Instant()>;
    using Services = newsroom::AppleServiceStatus::Services;
    template <class T>
    using Result = boost::asio::awaitable<TrackerReading<T>>;

    TrackerRefresh(LocalStore& store, newsroom::HTTPClient& http, Clock clock,
                   std::string_view serviceAddress);

    /// Each ends with what there is to show; with an error when that is not from this answer.
    Result<Services> status(newsroom::StatusAudience audience);
    Result<std::vector<newsroom::PlatformRelease>> releases();
    Result<std::vector<newsroom::AppleCalendarEvent>> events();
    Result<newsroom::StockQuote> quote(std::string_view symbol, newsroom::QuoteRange range);
    Result<std::vector<newsroom::BoardQuote>> board();

private:
    struct Request {
        std::string address;
        std::size_t byteLimit;
    };
    /// Called for a good answer, completed, in the transaction that keeps it.
    template <class T>
    using Log = std::function<void(const T&, newsroom::Instant)>;

    template <class T>
    Result<T> refresh(TrackedFile<T> file, Request request, Log<T> log);
    template <class T>
    TrackerReading<T> keep(const TrackedFile<T>& file, const std::string& body, const Log<T>& log);
    template <class T>
    TrackerReading<T> failed(const TrackedFile<T>& file, std::string error);
    template <class T>
    TrackerReading<T> unblamed(const TrackedFile<T>& file, std::string error);

    std::optional<std::string> pauseText(const std::string& address);
    void leaveAlone(const std::string& address, std::chrono::seconds wanted);

    LocalStore& store_;
    Clock clock_;
    newsroom::TrackerAPI api_;
    LastGood lastGood_;
};

}  // namespace desk
