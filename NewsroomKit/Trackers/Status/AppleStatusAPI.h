#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Status/StatusFeed.h"

namespace kit {

/// Apple's system-status files.
struct AppleStatusAPI {
    static constexpr std::size_t kByteLimit = 2'097'152;
    /// The page that people read.
    static constexpr std::string_view kPage = "https://www.apple.com/support/systemstatus/";

    HTTPClient& http;

    static std::string address(StatusFeed audience);

    /// Throws RecordError when what came is no status file; parse with
    /// AppleServiceStatus::parse what fetchBody has brought.
    boost::asio::awaitable<FetchResult<AppleServiceStatus::Services>> fetch(
        StatusFeed audience) const;
};

}  // namespace kit
