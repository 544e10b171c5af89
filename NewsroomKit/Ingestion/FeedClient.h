#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include <boost/asio/awaitable.hpp>
#include <boost/asio/thread_pool.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Ingestion/ClockCheck.h"
#include "NewsroomKit/Ingestion/FetchQueue.h"
#include "NewsroomKit/Ingestion/SourceFetch.h"
#include "NewsroomKit/Ingestion/StoryConversion.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"

namespace kit {

/// Fetches sources and produces their stories: request, parse, convert, label. Coroutines wait on
/// the caller's executor, which must run one handler at a time; parsing and conversion run on
/// worker threads.
class FeedClient {
public:
    static constexpr std::size_t kByteLimit = 6'291'456;

    struct Options {
        int concurrency = 24;  ///< sources fetched at once
        Conditional conditional = Conditional::yes;
        FetchQueue::Limits hostLimits = {};
    };

    /// Called on the caller's executor, once per source, in the order of completion.
    using Arrival = std::function<void(const NewsSource&, SourceFetch)>;

    FeedClient(HTTPClient& http, const StoryConversion& conversion,
               boost::asio::thread_pool& workers, Clock clock, Options options);

    /// `watch` is called on the caller's executor.
    boost::asio::awaitable<SourceFetch> fetch(NewsSource source, FetchWatch watch = {});

    /// Has the dates of all answers since its last reset. For use on the caller's executor.
    ClockCheck& clockCheck() { return clockCheck_; }

    /// Called on the caller's executor just before a source is fetched: false skips it, and it does
    /// not arrive.
    using Gate = std::function<bool(const NewsSource&)>;

    /// Completes when every source has arrived, or soon after it is cancelled.
    boost::asio::awaitable<void> fetchAll(std::vector<NewsSource> sources, Arrival arrival,
                                          Gate gate = {});

private:
    struct Reading;
    struct Answer;
    struct Pass;

    boost::asio::awaitable<Reading> read(std::string body, const NewsSource& source,
                                         std::string address, Instant now);
    boost::asio::awaitable<Answer> ask(std::string address, const NewsSource& source,
                                       Conditional conditional, NamedBy namedBy);
    boost::asio::awaitable<Answer> askWatched(std::string address, const NewsSource& source,
                                              Conditional conditional, NamedBy namedBy,
                                              const FetchWatch& watch);
    boost::asio::awaitable<SourceFetch> fetchFeedOf(Reading page, const NewsSource& source,
                                                    HTTPClient::Record record,
                                                    const FetchWatch& watch);
    boost::asio::awaitable<void> work(Pass& pass);

    HTTPClient& http_;
    const StoryConversion& conversion_;
    boost::asio::thread_pool& workers_;
    Clock clock_;
    ClockCheck clockCheck_;
    Options options_;
};

}  // namespace kit
