#pragma once

#include <cstddef>
#include <string>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"

namespace kit {

struct FetchedBody {
    FetchResult<std::string> body;
    HTTPClient::Record record;
};

/// The whole answer as it came, for callers who keep it and parse it again later. Asked for
/// in full each time: a tracker's files are small, and its last good copy may be gone.
boost::asio::awaitable<FetchedBody> fetchBody(HTTPClient& http, std::string address,
                                              std::size_t byteLimit);

}  // namespace kit
