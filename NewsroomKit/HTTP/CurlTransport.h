#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/HTTPClientError.h"
#include "NewsroomKit/HTTP/HTTPMethod.h"
#include "NewsroomKit/HTTP/PrivateAddress.h"
#include "NewsroomKit/HTTP/ResponseHeaders.h"
#include "NewsroomKit/HTTP/ValidatorTable.h"

namespace kit {

/// One request over HTTPS.
struct TransportRequest {
    std::string url;
    HTTPMethod method = HTTPMethod::get;
    std::string body = {};                          ///< unused for GET
    std::vector<std::string> headers = {};          ///< lines of "Name: value"
    std::size_t byteLimit = 0;                      ///< of the decoded body
    std::chrono::milliseconds idleTimeout{15'000};  ///< for silence, connecting included
    std::chrono::milliseconds totalTimeout{30'000};
    /// The address comes from a public page, so it must not lead to a private one.
    bool namedInPublic = false;
    int readableStatus = 0;  ///< outside of 2xx, but with a body that is wanted
};

/// The outcome of a request. Redirects of a GET have been followed.
struct TransportAnswer {
    std::optional<FetchError> failure = {};  ///< a status other than 304 outside 2xx is one
    int status = 0;                          ///< of the last answer; 0 when there was none
    std::string url = {};                    ///< where the last answer came from
    std::string body = {};                   ///< decoded; only when nothing failed
    Validators validators = {};
    ResponseHeaders headers = {};  ///< of the last answer, also when it is a failure
    /// Where another method than GET is to be repeated (307, 308) or its result to be fetched
    /// (303). Empty where that is not allowed: a repeated request must stay with its origin, and
    /// 301 and 302 leave open whether the method stays.
    std::string redirectTo = {};
    std::uint64_t bytesOnWire = 0;                        ///< headers and encoded body
    std::optional<std::chrono::seconds> retryAfter = {};  ///< of a 429 or 503
    /// The address to which a permanent redirect (301, 308) moved this one, when the answer is
    /// good.
    std::optional<std::string> movedTo = {};
    bool cameFromPublic = false;  ///< a server on the public network was involved
    std::optional<std::chrono::sys_seconds> date = {};  ///< the server's own time
};

/// Runs any number of requests at once on a thread of its own; the only user of curl. It enforces:
/// https only, redirects included; verified certificates; bodies limited while they are decoded; no
/// redirect from a public to a private address; no cookies.
class CurlTransport {
public:
    struct Options {
        /// "HOST:PORT" that every connection goes to; names and certificates stay those of the
        /// requested addresses.
        std::optional<std::string> connectTo = {};
        /// Trusted instead of the system's authorities.
        std::optional<std::filesystem::path> caFile = {};
        /// Trusted besides them, each for one host name only. Redirects of such a host are
        /// not followed, so that its authority never speaks for another host.
        std::map<std::string, std::filesystem::path, std::less<>> extraAuthorities = {};
        /// Numeric addresses that a redirect from a public one must not lead to. Not called when
        /// `connectTo` is set.
        bool (*isPrivate)(std::string_view ip) = isPrivateAddress;
    };

    /// Throws std::runtime_error when a named authority file cannot be read.
    explicit CurlTransport(Options options);

    /// Requests in flight end as cancelled. The executors of waiting coroutines must outlive this
    /// object.
    ~CurlTransport();
    CurlTransport(const CurlTransport&) = delete;
    CurlTransport& operator=(const CurlTransport&) = delete;

    /// Resumes on the executor of the caller. Cancelling the caller ends the request, whether
    /// it is queued or in flight, with URLError::cancelled.
    boost::asio::awaitable<TransportAnswer> perform(TransportRequest request);

private:
    class Loop;
    std::unique_ptr<Loop> loop_;
};

}  // namespace kit
