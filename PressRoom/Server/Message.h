#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pressroom {

/// One request as a handler sees it.
struct Request {
    std::string method = {};
    std::string host = {};    ///< lower case, without port
    std::string target = {};  ///< path and query, exactly as sent
    std::map<std::string, std::string, std::less<>> headers = {};  ///< names in lower case
    std::string body = {};

    /// Nothing when the request has no such header. `name` is in lower case.
    std::optional<std::string_view> header(std::string_view name) const;

    /// The target up to its "?".
    std::string_view path() const;
};

/// How an answer is delivered. The default is a well-behaved server.
struct Delivery {
    enum class Framing {
        contentLength,
        chunked,
        untilClose  ///< without a length: the end of the connection ends the body
    };

    Framing framing = Framing::contentLength;
    std::chrono::milliseconds delay{0};  ///< before the status line
    /// Announced instead of the true length. If it is longer, the connection is closed after the
    /// body; if it is shorter, the whole body is sent all the same.
    std::optional<std::uint64_t> announcedLength = {};
    std::size_t trickleBytes = 0;                  ///< 0: the body goes out at once
    std::chrono::milliseconds trickleInterval{0};  ///< between two pieces of a trickle
    /// Closes the connection after this many bytes of body.
    std::optional<std::size_t> closeAfter = {};
    bool neverAnswers = false;                 ///< accepts the request and stays silent
    bool hangsUp = false;                      ///< closes the connection instead of answering
    std::optional<std::string> rawBytes = {};  ///< sent instead of any HTTP, then closed
};

struct Response {
    int status = 200;
    /// Without Content-Length, Transfer-Encoding and Connection, which the server sets.
    std::vector<std::pair<std::string, std::string>> headers = {};
    std::string body = {};  ///< already encoded when a Content-Encoding header says so
    Delivery delivery = {};
};

/// Called on the server's threads, several at once, so it must be thread-safe.
using Handler = std::function<Response(const Request&)>;

}  // namespace pressroom
