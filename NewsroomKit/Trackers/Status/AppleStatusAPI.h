#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/BodyFetch.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Status/StatusFeed.h"

namespace kit {

/// Fetches Apple's two system-status files.
struct AppleStatusAPI {
    static constexpr std::size_t kByteLimit = 2'097'152;
    /// The page that people read.
    static constexpr std::string_view kPage = "https://www.apple.com/support/systemstatus/";

    HTTPClient& http;

    static std::string address(StatusFeed audience);

    /// Throws RecordError when the answer is no status file.
    boost::asio::awaitable<FetchedFile<AppleServiceStatus::Services>> fetch(
        StatusFeed audience) const;
};

}  // namespace kit
