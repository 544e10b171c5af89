#include "NewsroomKit/HTTP/BodyFetch.h"

#include <utility>
#include <variant>

namespace kit {

boost::asio::awaitable<FetchedBody> fetchBody(HTTPClient& http, HTTPClient::Request request) {
    request.conditional = Conditional::no;
    auto exchange = co_await http.exchange(std::move(request));
    if (!exchange.result) co_return FetchedBody{exchange.result.error(), exchange.record};
    if (auto* fresh = std::get_if<HTTPClient::Fresh>(&exchange.result.value())) {
        co_return FetchedBody{std::move(fresh->body), exchange.record};
    }
    // "Not modified" is not a valid answer to an unconditional request.
    co_return FetchedBody{FetchError(HTTPClientError{.kind = HTTPClientError::Kind::empty}),
                          exchange.record};
}

}  // namespace kit
