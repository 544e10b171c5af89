#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <variant>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/HTTPClientError.h"
#include "NewsroomKit/HTTP/HTTPMethod.h"
#include "NewsroomKit/HTTP/ResponseHeaders.h"
#include "NewsroomKit/HTTP/ValidatorTable.h"

namespace kit {

class CurlTransport;
struct TransportAnswer;
struct TransportRequest;

/// Whether a request tells the server which answer the caller already has.
enum class Conditional { no, yes };

/// Who named an address: one from a public page must not lead to a private address.
enum class NamedBy { user, publicPage };

/// Fetches all feeds and web data: https only, answers limited in size, one retry after a transient
/// failure, conditional requests with the validators of the last answer.
///
/// A body is only sent to the origin that it is meant for: a 307 or 308 that leads elsewhere is a
/// failure. A 303 is followed with a GET, to any https address. A POST is not retried, because the
/// server may have carried it out.
///
/// Many coroutines may fetch through one client at once, from any thread.
class HTTPClient {
public:
    struct Configuration {
        std::chrono::milliseconds requestTimeout{15'000};   ///< without a byte
        std::chrono::milliseconds resourceTimeout{30'000};  ///< of an attempt as a whole
        std::string userAgent =
            "TarnwickBrell/1.0 (Macintosh; macOS) +https://tarnwick-brell.example/";
        std::chrono::milliseconds retryPause{500};
        std::chrono::milliseconds retryJitter{300};  ///< the greatest random addition to the pause
        bool isPaced = true;  ///< false for a server of the user's own, which is not spared
    };

    struct Request {
        std::string url;
        HTTPMethod method = HTTPMethod::get;
        std::string body = {};
        std::string contentType = {};  ///< of the body
        /// The value of the Authorization header, which stays with the origin; empty for none.
        std::string authorization = {};
        Conditional conditional = Conditional::no;
        /// Of the answer that the caller holds, for a request that isn't conditional by the
        /// client's own table.
        Validators validators = {};
        std::size_t byteLimit = 0;  ///< of the answer's body
        NamedBy namedBy = NamedBy::user;
        /// Replaces the configuration's. Control characters are removed.
        std::optional<std::string> userAgent = {};
        /// A status outside of 2xx whose body is an answer, too: some services say why they refuse
        /// a request in a page only. The record has the status.
        int readableStatus = 0;
        /// Its attempts begin at least this long after the client's last attempt with a pace.
        std::chrono::milliseconds pace{0};
        /// Limits an attempt as a whole and replaces both times of the configuration: the server
        /// may be silent for this long.
        std::optional<std::chrono::milliseconds> timeLimit = {};
    };

    /// The body may be empty only when the method was not GET.
    struct Fresh {
        std::string body;
    };
    struct NotModified {};
    using Result = std::variant<Fresh, NotModified>;

    /// Cost and circumstances of a request, for monitoring sources.
    struct Record {
        int attempts = 0;
        int status = 0;                        ///< of the last answer; 0 when there was none
        std::string url = {};                  ///< where the last answer came from
        std::uint64_t bytesOnWire = 0;         ///< of all attempts
        std::chrono::microseconds elapsed{0};  ///< all attempts and the pause between
        /// How long the server asks clients to wait (429 and 503).
        std::optional<std::chrono::seconds> retryAfter = {};
        /// The address that this one has permanently moved to. The user decides; nothing is stored.
        std::optional<std::string> movedTo = {};
        bool cameFromPublic = false;  ///< a server on the public network was involved
        /// The time of the answer by the server's clock.
        std::optional<std::chrono::sys_seconds> date = {};
    };

    struct Exchange {
        FetchResult<Result> result;
        Record record;
        ResponseHeaders headers = {};  ///< of the last answer, also when it is a failure
    };

    explicit HTTPClient(CurlTransport& transport) : HTTPClient(transport, Configuration{}) {}
    HTTPClient(CurlTransport& transport, Configuration configuration);

    boost::asio::awaitable<FetchResult<Result>> fetch(std::string url, Conditional conditional,
                                                      std::size_t byteLimit);

    /// Any request, with its record.
    boost::asio::awaitable<Exchange> exchange(Request request);

    /// In memory only; the caller exports and imports it to keep it between runs.
    ValidatorTable& validators() { return validators_; }

private:
    TransportRequest transportRequest(const Request& request) const;
    boost::asio::awaitable<void> pauseBeforeRetry() const;
    boost::asio::awaitable<void> waitForTurn(std::chrono::milliseconds pace);
    boost::asio::awaitable<TransportAnswer> performAndFollow(TransportRequest request);
    boost::asio::awaitable<FetchResult<Result>> attempt(const Request& request, Exchange& exchange);

    CurlTransport& transport_;
    Configuration configuration_;
    ValidatorTable validators_;
    std::mutex turnMutex_;
    std::chrono::steady_clock::time_point nextTurn_{};
};

}  // namespace kit
