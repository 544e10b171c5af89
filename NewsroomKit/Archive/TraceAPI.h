#pragma once

#include <string>
#include <string_view>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Archive/TraceResult.h"
#include "NewsroomKit/HTTP/HTTPClient.h"

namespace kit {

/// Traces a story back through the outlets that ran it, with the archive service.
struct TraceAPI {
    std::string base;  ///< ends in "/wp-json/tb-archive/v1/"; see archiveBaseAt()
    HTTPClient& http;

    /// `story` is its address. Throws what archiveAnswer throws.
    boost::asio::awaitable<FetchResult<TraceResult>> trace(std::string_view story) const;
};

}  // namespace kit
