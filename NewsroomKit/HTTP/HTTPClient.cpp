#include "NewsroomKit/HTTP/HTTPClient.h"

#include <algorithm>
#include <random>
#include <string_view>
#include <utility>

#include <boost/asio/redirect_error.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/this_coro.hpp>
#include <boost/asio/use_awaitable.hpp>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Log/Log.h"

namespace kit {
namespace {

namespace asio = boost::asio;
using SteadyClock = std::chrono::steady_clock;

bool isHTTPS(std::string_view url) {
    constexpr std::string_view scheme = "https:";
    return url.size() > scheme.size() &&
           std::ranges::equal(url.substr(0, scheme.size()), scheme, [](char given, char wanted) {
               return (given >= 'A' && given <= 'Z' ? given + ('a' - 'A') : given) == wanted;
           });
}

/// An address without what names the feed's reader: host and path, no query.
std::string_view withoutQuery(std::string_view url) { return url.substr(0, url.find('?')); }

void logExchange(const std::string& url, const FetchResult<HTTPClient::Result>& result,
                 const HTTPClient::Record& record) {
    const double seconds = std::chrono::duration<double>(record.elapsed).count();
    if (result.has_error()) {
        log(LogCategory::http, LogLevel::info, "{}: {} (attempts: {}, {:.1f} s)", withoutQuery(url),
            result.error().description(), record.attempts, seconds);
    } else {
        log(LogCategory::http, LogLevel::debug, "{}: {} ({} bytes, {:.1f} s)", withoutQuery(url),
            record.status, record.bytesOnWire, seconds);
    }
}

}  // namespace

HTTPClient::HTTPClient(CurlTransport& transport, Configuration configuration)
    : transport_(transport), configuration_(std::move(configuration)) {}

asio::awaitable<FetchResult<HTTPClient::Result>> HTTPClient::fetch(std::string url,
                                                                   Conditional conditional,
                                                                   std::size_t byteLimit) {
    auto done = co_await exchange(std::move(url), conditional, byteLimit);
    co_return std::move(done.result);
}

asio::awaitable<HTTPClient::Exchange> HTTPClient::exchange(std::string url, Conditional conditional,
                                                           std::size_t byteLimit, NamedBy namedBy) {
    using Kind = HTTPClientError::Kind;
    Record record;
    if (!isHTTPS(url)) co_return Exchange{HTTPClientError{.kind = Kind::notHTTPS}, record};

    const auto start = SteadyClock::now();
    auto result = co_await attempt(url, conditional, byteLimit, namedBy, record);
    if (result.has_error() && result.error().isRetryable()) {
        // Once cancelled, waiting for anything would throw: ask before each step.
        const auto isCancelled = [](const asio::cancellation_state& state) {
            return state.cancelled() != asio::cancellation_type::none;
        };
        if (!isCancelled(co_await asio::this_coro::cancellation_state)) {
            co_await pauseBeforeRetry();
        }
        if (isCancelled(co_await asio::this_coro::cancellation_state)) {
            result = FetchError(URLError::cancelled);
        } else {
            result = co_await attempt(url, conditional, byteLimit, namedBy, record);
        }
    }
    record.elapsed =
        std::chrono::duration_cast<std::chrono::microseconds>(SteadyClock::now() - start);
    logExchange(url, result, record);
    co_return Exchange{std::move(result), std::move(record)};
}

asio::awaitable<FetchResult<HTTPClient::Result>> HTTPClient::attempt(const std::string& url,
                                                                     Conditional conditional,
                                                                     std::size_t byteLimit,
                                                                     NamedBy namedBy,
                                                                     Record& record) {
    ++record.attempts;
    auto request = requestFor(url, conditional, byteLimit, namedBy);
    auto answer = co_await transport_.perform(std::move(request));
    record.status = answer.status;
    record.bytesOnWire += answer.bytesOnWire;
    // What the first attempt was told still holds when the second one fails in another way.
    if (answer.retryAfter || !answer.failure) record.retryAfter = answer.retryAfter;
    record.movedTo = std::move(answer.movedTo);
    record.cameFromPublic = answer.cameFromPublic;
    record.date = answer.date;

    if (answer.failure) co_return *answer.failure;
    if (answer.status == 304) co_return Result(NotModified{});
    if (answer.body.empty()) {
        co_return FetchError(HTTPClientError{.kind = HTTPClientError::Kind::empty});
    }
    if (conditional == Conditional::yes) validators_.store(url, std::move(answer.validators));
    co_return Result(Fresh{std::move(answer.body)});
}

TransportRequest HTTPClient::requestFor(const std::string& url, Conditional conditional,
                                        std::size_t byteLimit, NamedBy namedBy) const {
    TransportRequest request{.url = url,
                             .byteLimit = byteLimit,
                             .idleTimeout = configuration_.requestTimeout,
                             .totalTimeout = configuration_.resourceTimeout,
                             .namedInPublic = namedBy == NamedBy::publicPage};
    request.headers = {"User-Agent: " + configuration_.userAgent, "Cache-Control: no-cache"};
    if (conditional == Conditional::yes) {
        const auto known = validators_.find(url);
        if (known.entityTag) request.headers.push_back("If-None-Match: " + *known.entityTag);
        if (known.lastModified) {
            request.headers.push_back("If-Modified-Since: " + *known.lastModified);
        }
    }
    return request;
}

asio::awaitable<void> HTTPClient::pauseBeforeRetry() const {
    std::random_device source;
    std::uniform_int_distribution<std::chrono::milliseconds::rep> jitter(
        0, configuration_.retryJitter.count());
    asio::steady_timer timer(co_await asio::this_coro::executor);
    timer.expires_after(configuration_.retryPause + std::chrono::milliseconds(jitter(source)));
    boost::system::error_code stoppedEarly;
    co_await timer.async_wait(asio::redirect_error(asio::use_awaitable, stoppedEarly));
}

}  // namespace kit
