#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Trackers/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/StatusAudience.h"

namespace newsroom {

/// Apple's system-status files.
struct AppleStatusAPI {
    static constexpr std::size_t kByteLimit = 2'097'152;
    /// The page that people read.
    static constexpr std::string_view kPage = "https://www.apple.com/support/systemstatus/";

    HTTPClient& http;

    static std::string address(StatusAudience audience);

    /// Throws RecordError when what came is no status file; parse with
    /// AppleServiceStatus::parse what fetchBody has brought.
    boost::asio::awaitable<FetchResult<AppleServiceStatus::Services>> fetch(
        StatusAudience audience) const;
};

}  // namespace newsroom
