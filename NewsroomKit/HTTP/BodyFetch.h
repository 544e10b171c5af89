#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"

namespace kit {

struct FetchedBody {
    FetchResult<std::string> body;
    HTTPClient::Record record;
};

/// Fetches a body unparsed, for callers that store it and parse it later. The request is never
/// conditional: most tracked files are small, and the last good copy may be gone.
boost::asio::awaitable<FetchedBody> fetchBody(HTTPClient& http, HTTPClient::Request request);

/// The parsed answer of a service, with its body for callers who cache it.
template <class T>
struct FetchedFile {
    FetchResult<T> value;
    std::string body{};                                ///< empty when there is no value
    std::optional<std::chrono::seconds> retryAfter{};  ///< the pause that the server asks for
    /// The server says that the caller has the answer already. There is no body then, and no
    /// meaning in the value.
    bool isUnchanged = false;
};

/// Throws what `parse` throws when the body is not what it should be.
template <class T>
boost::asio::awaitable<FetchedFile<T>> fetchFile(HTTPClient& http, HTTPClient::Request request,
                                                 T (*parse)(std::string_view body)) {
    auto fetched = co_await fetchBody(http, std::move(request));
    if (!fetched.body) {
        co_return FetchedFile<T>{.value = fetched.body.error(),
                                 .retryAfter = fetched.record.retryAfter};
    }
    auto body = std::move(fetched.body).value();
    auto value = parse(body);
    co_return FetchedFile<T>{.value = std::move(value), .body = std::move(body)};
}

/// The same for an address that anyone may ask for.
template <class T>
boost::asio::awaitable<FetchedFile<T>> fetchFile(HTTPClient& http, std::string address,
                                                 std::size_t byteLimit,
                                                 T (*parse)(std::string_view body)) {
    return fetchFile(http, HTTPClient::Request{.url = std::move(address), .byteLimit = byteLimit},
                     parse);
}

}  // namespace kit
