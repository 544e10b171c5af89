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

constexpr int kMostRedirects = 10;
// Without a value curl sends no such header.
const std::string kContentType = "Content-Type: ";

/// Keeps a value from starting another header.
std::string inOneLine(std::string text) {
    std::erase_if(text, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; });
    return text;
}

/// Turns the request into a GET, which fetches the result after a 303.
void withoutBody(TransportRequest& request) {
    request.method = HTTPMethod::get;
    request.body.clear();
    std::erase_if(request.headers, [](const auto& line) { return line.starts_with(kContentType); });
}

/// The address for log lines: a query may identify the reader.
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
    Request request{.url = std::move(url), .conditional = conditional, .byteLimit = byteLimit};
    auto done = co_await exchange(std::move(request));
    co_return std::move(done.result);
}

asio::awaitable<HTTPClient::Exchange> HTTPClient::exchange(Request request) {
    using Kind = HTTPClientError::Kind;
    Exchange done{HTTPClientError{.kind = Kind::notHTTPS}, {}};
    if (!isHTTPS(request.url)) co_return done;

    const auto start = SteadyClock::now();
    done.result = co_await attempt(request, done);
    const bool mayRepeat = request.method != HTTPMethod::post;
    if (mayRepeat && done.result.has_error() && done.result.error().isRetryable()) {
        // Once cancelled, every wait would throw, so check before each step.
        const auto isCancelled = [](const asio::cancellation_state& state) {
            return state.cancelled() != asio::cancellation_type::none;
        };
        if (!isCancelled(co_await asio::this_coro::cancellation_state)) {
            co_await pauseBeforeRetry();
        }
        if (isCancelled(co_await asio::this_coro::cancellation_state)) {
            done.result = FetchError(URLError::cancelled);
        } else {
            done.result = co_await attempt(request, done);
        }
    }
    done.record.elapsed =
        std::chrono::duration_cast<std::chrono::microseconds>(SteadyClock::now() - start);
    logExchange(request.url, done.result, done.record);
    co_return done;
}

asio::awaitable<FetchResult<HTTPClient::Result>> HTTPClient::attempt(const Request& request,
                                                                     Exchange& exchange) {
    auto& record = exchange.record;
    ++record.attempts;
    if (configuration_.isPaced && request.pace.count() > 0) co_await waitForTurn(request.pace);
    auto answer = co_await performAndFollow(transportRequest(request));
    record.status = answer.status;
    record.url = std::move(answer.url);
    record.bytesOnWire += answer.bytesOnWire;
    // The first attempt's Retry-After still holds when the second attempt fails in another way.
    if (answer.retryAfter || !answer.failure) record.retryAfter = answer.retryAfter;
    record.movedTo = std::move(answer.movedTo);
    record.cameFromPublic = answer.cameFromPublic;
    record.date = answer.date;
    exchange.headers = std::move(answer.headers);

    if (answer.failure) co_return *answer.failure;
    if (answer.status == 304) co_return Result(NotModified{});
    if (request.method != HTTPMethod::get) co_return Result(Fresh{std::move(answer.body)});
    if (answer.body.empty()) {
        co_return FetchError(HTTPClientError{.kind = HTTPClientError::Kind::empty});
    }
    if (request.conditional == Conditional::yes)
        validators_.store(request.url, std::move(answer.validators));
    co_return Result(Fresh{std::move(answer.body)});
}

/// The transport follows the redirects of a GET itself.
asio::awaitable<TransportAnswer> HTTPClient::performAndFollow(TransportRequest request) {
    std::uint64_t bytes = 0;
    for (int redirects = 0;; ++redirects) {
        const auto start = SteadyClock::now();
        auto answer = co_await transport_.perform(request);
        answer.bytesOnWire = bytes += answer.bytesOnWire;
        if (answer.redirectTo.empty()) co_return answer;
        if (redirects == kMostRedirects) {
            answer.failure = URLError::tooManyRedirects;
            co_return answer;
        }
        if (!isHTTPS(answer.redirectTo)) {
            answer.failure = HTTPClientError{.kind = HTTPClientError::Kind::notHTTPS};
            co_return answer;
        }
        if (answer.status == 303) withoutBody(request);
        request.url = std::move(answer.redirectTo);
        request.namedInPublic = request.namedInPublic || answer.cameFromPublic;
        request.totalTimeout -=
            std::chrono::duration_cast<std::chrono::milliseconds>(SteadyClock::now() - start);
        if (const auto state = co_await asio::this_coro::cancellation_state;
            state.cancelled() != asio::cancellation_type::none) {
            answer.failure = URLError::cancelled;
            co_return answer;
        }
    }
}

TransportRequest HTTPClient::transportRequest(const Request& request) const {
    TransportRequest wanted{
        .url = request.url,
        .method = request.method,
        .body = request.body,
        .byteLimit = request.byteLimit,
        .idleTimeout = request.timeLimit.value_or(configuration_.requestTimeout),
        .totalTimeout = request.timeLimit.value_or(configuration_.resourceTimeout),
        .namedInPublic = request.namedBy == NamedBy::publicPage,
        .readableStatus = request.readableStatus};
    wanted.headers = {
        "User-Agent: " + inOneLine(request.userAgent.value_or(configuration_.userAgent)),
        "Cache-Control: no-cache"};
    if (!request.authorization.empty())
        wanted.headers.push_back("Authorization: " + inOneLine(request.authorization));
    if (request.method != HTTPMethod::get) {
        wanted.headers.push_back(kContentType + inOneLine(request.contentType));
        return wanted;
    }
    const auto known = request.conditional == Conditional::yes ? validators_.find(request.url)
                                                               : sendable(request.validators);
    if (known.entityTag) wanted.headers.push_back("If-None-Match: " + *known.entityTag);
    if (known.lastModified) wanted.headers.push_back("If-Modified-Since: " + *known.lastModified);
    return wanted;
}

/// Once cancelled, a wait would throw.
asio::awaitable<void> HTTPClient::waitForTurn(std::chrono::milliseconds pace) {
    if (const auto state = co_await asio::this_coro::cancellation_state;
        state.cancelled() != asio::cancellation_type::none) {
        co_return;
    }
    asio::steady_timer timer(co_await asio::this_coro::executor);
    {
        const std::lock_guard lock(turnMutex_);
        const auto turn = std::max(SteadyClock::now(), nextTurn_);
        nextTurn_ = turn + pace;
        timer.expires_at(turn);
    }
    boost::system::error_code stoppedEarly;
    co_await timer.async_wait(asio::redirect_error(asio::use_awaitable, stoppedEarly));
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
