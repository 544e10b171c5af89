#include "NewsroomKit/Ingestion/FeedClient.h"

#include <chrono>
#include <exception>
#include <optional>
#include <stop_token>

#include <boost/asio/as_tuple.hpp>
#include <boost/asio/bind_cancellation_slot.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/deferred.hpp>
#include <boost/asio/experimental/parallel_group.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/this_coro.hpp>
#include <boost/asio/use_awaitable.hpp>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Feeds/FeedParser.h"
#include "NewsroomKit/Feeds/TextTruncation.h"
#include "NewsroomKit/Ingestion/PageFeedLinks.h"

namespace kit {

namespace asio = boost::asio;

namespace {

// A page names its main feed first, then feeds of comments and sections.
constexpr std::size_t kMostLinksTried = 3;

// Even the slowest known document takes a tenth of this.
constexpr std::chrono::seconds kLongestReading{10};

constexpr std::size_t kLongestAddressShown = 120;

SourceFetch::Failed failedWith(const FetchError& error) {
    return {.text = error.description(),
            .cancelled = error == FetchError(URLError::cancelled),
            .offline = error == FetchError(URLError::notConnectedToInternet)};
}

/// The user knows the page's address but not that of the feed it names, so the text includes both.
SourceFetch::Failed unusable(const std::string& feed, SourceFetch::Failed failed) {
    const auto address = cutAtWord(maskedSecrets(feed), kLongestAddressShown);
    failed.text = "The page names the feed " + address + ", which can't be used. " + failed.text;
    return failed;
}

}  // namespace

/// The outcome of reading a body.
struct FeedClient::Reading {
    std::variant<SourceFetch::Stories, FeedParserError> result = FeedParserError::notAFeed;
    std::vector<std::string> feedLinks = {};  ///< of a web page
    std::string pageTitle = {};
    bool isAbandoned = false;  ///< the fetch was cancelled meanwhile
};

/// One pass over many sources: the queue, and a timer that wakes workers when a host has a free
/// slot again.
struct FeedClient::Pass {
    Pass(std::vector<NewsSource> sources, FetchQueue::Limits limits, Arrival& onArrival,
         Gate& onTurn, const asio::any_io_executor& executor)
        : queue(std::move(sources), limits),
          arrival(onArrival),
          gate(onTurn),
          roomMade(executor, asio::steady_timer::time_point::max()) {}

    FetchQueue queue;
    Arrival& arrival;
    Gate& gate;
    asio::steady_timer roomMade;
};

FeedClient::FeedClient(HTTPClient& http, const StoryConversion& conversion,
                       asio::thread_pool& workers, Clock clock, Options options)
    : http_(http),
      conversion_(conversion),
      workers_(workers),
      clock_(std::move(clock)),
      options_(options) {}

asio::awaitable<SourceFetch> FeedClient::fetch(NewsSource source) {
    co_await asio::this_coro::throw_if_cancelled(false);
    co_return co_await fetchFrom(source.feedURL, source, options_.conditional, NamedBy::user);
}

asio::awaitable<SourceFetch> FeedClient::fetchFrom(std::string address, const NewsSource& source,
                                                   Conditional conditional, NamedBy namedBy) {
    HTTPClient::Request request{
        .url = address, .conditional = conditional, .byteLimit = kByteLimit, .namedBy = namedBy};
    auto exchange = co_await http_.exchange(std::move(request));
    if (exchange.record.date) clockCheck_.add(clock_(), *exchange.record.date);
    SourceFetch fetch{.outcome = SourceFetch::Unchanged{}, .record = exchange.record};
    if (!exchange.result) {
        fetch.outcome = failedWith(exchange.result.error());
        co_return fetch;
    }
    auto* fresh = std::get_if<HTTPClient::Fresh>(&exchange.result.value());
    if (!fresh) co_return fetch;

    auto reading =
        co_await read(std::move(fresh->body), source, address, clockCheck_.corrected(clock_()));
    if (reading.isAbandoned) {
        http_.validators().forget(address);
        fetch.outcome = failedWith(FetchError(URLError::cancelled));
        co_return fetch;
    }
    if (auto* stories = std::get_if<SourceFetch::Stories>(&reading.result)) {
        fetch.outcome = std::move(*stories);
        co_return fetch;
    }

    // A body that did not parse must be fetched again: a 304 would hide a correction.
    http_.validators().forget(address);
    if (address == source.feedURL) {
        co_return co_await fetchFeedOf(std::move(reading), source, std::move(fetch.record));
    }
    const auto error = std::get<FeedParserError>(reading.result);
    fetch.outcome = SourceFetch::Failed{std::string(description(error))};
    co_return fetch;
}

/// The first feed with a story among those that a web page names. Otherwise an empty feed, else the
/// first failure.
asio::awaitable<SourceFetch> FeedClient::fetchFeedOf(Reading page, const NewsSource& source,
                                                     HTTPClient::Record record) {
    const auto namedBy = record.cameFromPublic ? NamedBy::publicPage : NamedBy::user;
    std::optional<SourceFetch::Failed> reason;
    std::optional<SourceFetch> empty;
    for (const auto& link : page.feedLinks) {
        const auto cancellation = co_await asio::this_coro::cancellation_state;
        if (cancellation.cancelled() != asio::cancellation_type::none) break;
        if (link == source.feedURL) continue;
        // Unconditional: another source's validators for that address do not apply to this one.
        auto linked = co_await fetchFrom(link, source, Conditional::no, namedBy);
        if (auto* stories = std::get_if<SourceFetch::Stories>(&linked.outcome)) {
            stories->pageTitle = page.pageTitle;
            if (!stories->list.empty()) co_return linked;
            if (!empty) empty = std::move(linked);
            continue;
        }
        const auto* failed = std::get_if<SourceFetch::Failed>(&linked.outcome);
        if (failed && failed->cancelled) co_return linked;
        if (failed && !reason) reason = unusable(link, *failed);
    }
    if (empty) co_return *std::move(empty);
    if (!reason) {
        const auto error = std::get<FeedParserError>(page.result);
        reason = SourceFetch::Failed{std::string(description(error))};
    }
    co_return SourceFetch{.outcome = *std::move(reason), .record = std::move(record)};
}

asio::awaitable<FeedClient::Reading> FeedClient::read(std::string body, const NewsSource& source,
                                                      std::string address, Instant now) {
    // A cancellation would end the coroutine on a pool thread, where nothing could catch it. So it
    // only asks the work to stop.
    const auto cancellation = co_await asio::this_coro::cancellation_state;
    std::stop_source stop;
    if (cancellation.cancelled() != asio::cancellation_type::none) stop.request_stop();
    auto slot = cancellation.slot();
    if (slot.is_connected()) {
        slot.assign([stop](asio::cancellation_type) mutable { stop.request_stop(); });
    }

    const auto parseOnWorker = [&]() -> asio::awaitable<Reading> {
        const WorkLimit limit(stop.get_token(), WorkLimit::Clock::now() + kLongestReading);
        Reading reading;
        auto parsed = parseFeed(body, address, limit);
        if (parsed) {
            reading.result = SourceFetch::Stories{
                .list = conversion_.stories(parsed.value().entries, source, now, limit),
                .feedTitle = std::move(parsed.value().title),
                .feedURL = address};
        } else {
            reading.result = parsed.error();
            // Links inside a truncated feed belong to its stories and lead to other sites.
            const bool isPage = parsed.error() == FeedParserError::notAFeed;
            if (isPage) {
                reading.feedLinks = pageFeedLinks(body, address);
                reading.pageTitle = pageTitle(body).value_or("");
            }
            if (reading.feedLinks.size() > kMostLinksTried) {
                reading.feedLinks.resize(kMostLinksTried);
            }
        }
        // With only some of the stories, the feed would seem to have dropped the others.
        if (limit.isReached()) reading.result = FeedParserError::malformed;
        reading.isAbandoned = stop.stop_requested();
        co_return reading;
    };
    auto reading = co_await asio::co_spawn(
        workers_, parseOnWorker,
        asio::bind_cancellation_slot(asio::cancellation_slot(), asio::use_awaitable));
    if (slot.is_connected()) slot.clear();
    co_return reading;
}

asio::awaitable<void> FeedClient::work(Pass& pass) {
    // Answers received before the pass is cancelled are still delivered.
    co_await asio::this_coro::throw_if_cancelled(false);
    const auto cancellation = co_await asio::this_coro::cancellation_state;
    while (cancellation.cancelled() == asio::cancellation_type::none && !pass.queue.isEmpty()) {
        const auto source = pass.queue.next();
        if (!source) {
            co_await pass.roomMade.async_wait(asio::as_tuple(asio::use_awaitable));
            continue;
        }
        if (pass.gate && !pass.gate(*source)) {
            pass.queue.finished(*source);
            pass.roomMade.cancel();
            continue;
        }
        auto fetched = co_await fetch(*source);
        pass.queue.finished(*source);
        pass.roomMade.cancel();
        pass.arrival(*source, std::move(fetched));
    }
}

asio::awaitable<void> FeedClient::fetchAll(std::vector<NewsSource> sources, Arrival arrival,
                                           Gate gate) {
    const auto executor = co_await asio::this_coro::executor;
    const auto crowd =
        std::min<std::size_t>(static_cast<std::size_t>(options_.concurrency), sources.size());
    if (crowd == 0) co_return;
    Pass pass(std::move(sources), options_.hostLimits, arrival, gate, executor);

    using Worker = decltype(asio::co_spawn(executor, work(pass), asio::deferred));
    std::vector<Worker> workers;
    for (std::size_t i = 0; i < crowd; ++i) {
        workers.push_back(asio::co_spawn(executor, work(pass), asio::deferred));
    }
    // A failure of `arrival` ends the pass: the other workers are cancelled.
    const auto [order, failures] =
        co_await asio::experimental::make_parallel_group(std::move(workers))
            .async_wait(asio::experimental::wait_for_one_error(), asio::use_awaitable);
    for (const auto index : order) {
        if (failures[index]) std::rethrow_exception(failures[index]);
    }
}

}  // namespace kit
