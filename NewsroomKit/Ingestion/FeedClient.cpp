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
constexpr std::size_t kMostLinksNamed = 8;

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

/// What one address gave.
struct FeedClient::Answer {
    SourceFetch fetch;
    std::optional<Reading> page = {};  ///< when it is no feed; `fetch` has failed then

    FetchAttempt attempt(std::string address) const {
        using Outcome = FetchAttempt::Outcome;
        FetchAttempt attempt{
            .address = std::move(address),
            .elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(fetch.record.elapsed)};
        if (page && !page->feedLinks.empty()) {
            attempt.outcome = Outcome::page;
            attempt.count = page->feedLinks.size();
        } else if (const auto* failed = std::get_if<SourceFetch::Failed>(&fetch.outcome)) {
            attempt.outcome = Outcome::failed;
            attempt.reason = failed->text;
        } else {
            attempt.outcome = Outcome::feed;
            const auto* stories = std::get_if<SourceFetch::Stories>(&fetch.outcome);
            attempt.count = stories ? stories->list.size() : 0;
        }
        return attempt;
    }
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

asio::awaitable<SourceFetch> FeedClient::fetch(NewsSource source, FetchWatch watch) {
    co_await asio::this_coro::throw_if_cancelled(false);
    auto answer =
        co_await askWatched(source.feedURL, source, options_.conditional, NamedBy::user, watch);
    if (!answer.page) co_return std::move(answer.fetch);
    co_return co_await fetchFeedOf(*std::move(answer.page), source, std::move(answer.fetch.record),
                                   watch);
}

asio::awaitable<FeedClient::Answer> FeedClient::askWatched(std::string address,
                                                           const NewsSource& source,
                                                           Conditional conditional, NamedBy namedBy,
                                                           const FetchWatch& watch) {
    if (watch) watch({.address = address});
    auto answer = co_await ask(address, source, conditional, namedBy);
    if (watch) watch(answer.attempt(address));
    co_return answer;
}

asio::awaitable<FeedClient::Answer> FeedClient::ask(std::string address, const NewsSource& source,
                                                    Conditional conditional, NamedBy namedBy) {
    HTTPClient::Request request{
        .url = address, .conditional = conditional, .byteLimit = kByteLimit, .namedBy = namedBy};
    auto exchange = co_await http_.exchange(std::move(request));
    if (exchange.record.date) clockCheck_.add(clock_(), *exchange.record.date);
    Answer answer{{.outcome = SourceFetch::Unchanged{}, .record = exchange.record}};
    auto& outcome = answer.fetch.outcome;
    if (!exchange.result) {
        outcome = failedWith(exchange.result.error());
        co_return answer;
    }
    auto* fresh = std::get_if<HTTPClient::Fresh>(&exchange.result.value());
    if (!fresh) co_return answer;

    auto reading =
        co_await read(std::move(fresh->body), source, address, clockCheck_.corrected(clock_()));
    if (reading.isAbandoned) {
        http_.validators().forget(address);
        outcome = failedWith(FetchError(URLError::cancelled));
        co_return answer;
    }
    if (auto* stories = std::get_if<SourceFetch::Stories>(&reading.result)) {
        outcome = std::move(*stories);
        co_return answer;
    }

    // A body that did not parse must be fetched again: a 304 would hide a correction.
    http_.validators().forget(address);
    const auto error = std::get<FeedParserError>(reading.result);
    outcome = SourceFetch::Failed{std::string(description(error))};
    answer.page = std::move(reading);
    co_return answer;
}

/// The first feed with a story among those that a web page names. Otherwise an empty feed, else the
/// first failure.
asio::awaitable<SourceFetch> FeedClient::fetchFeedOf(Reading page, const NewsSource& source,
                                                     HTTPClient::Record record,
                                                     const FetchWatch& watch) {
    const auto namedBy = record.cameFromPublic ? NamedBy::publicPage : NamedBy::user;
    std::optional<SourceFetch::Failed> reason;
    std::optional<SourceFetch> empty;
    std::erase(page.feedLinks, source.feedURL);
    const auto tried = std::min(page.feedLinks.size(), kMostLinksTried);
    const auto nameOthers = [&](std::size_t from) {
        for (auto i = from; watch && i < page.feedLinks.size(); ++i)
            watch({.address = page.feedLinks[i], .outcome = FetchAttempt::Outcome::untried});
    };
    for (std::size_t i = 0; i < tried; ++i) {
        const auto& link = page.feedLinks[i];
        const auto cancellation = co_await asio::this_coro::cancellation_state;
        if (cancellation.cancelled() != asio::cancellation_type::none) break;
        // Unconditional: another source's validators for that address do not apply to this one.
        auto linked = (co_await askWatched(link, source, Conditional::no, namedBy, watch)).fetch;
        if (auto* stories = std::get_if<SourceFetch::Stories>(&linked.outcome)) {
            stories->pageTitle = page.pageTitle;
            if (!stories->list.empty()) {
                nameOthers(i + 1);
                co_return linked;
            }
            if (!empty) empty = std::move(linked);
            continue;
        }
        const auto* failed = std::get_if<SourceFetch::Failed>(&linked.outcome);
        if (failed && failed->cancelled) co_return linked;
        if (failed && !reason) reason = unusable(link, *failed);
    }
    nameOthers(tried);
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
            if (reading.feedLinks.size() > kMostLinksNamed) {
                reading.feedLinks.resize(kMostLinksNamed);
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
