#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Archive/ArchiveAddresses.h"
#include "NewsroomKit/Archive/ArchivePage.h"
#include "NewsroomKit/Archive/ArchiveStatus.h"
#include "NewsroomKit/Archive/ServerCredits.h"
#include "NewsroomKit/HTTP/HTTPClient.h"

namespace kit {

/// The maker's archive of the stories that the desk's sources published. Every answer is taken
/// whole or not at all: what the operations throw is archiveAnswer's.
struct StoryArchiveAPI {
    std::string base;  ///< ends in "/wp-json/tb-archive/v1/"; see archiveBaseAt()
    HTTPClient& http;

    /// Throws UnsendableInstant at the call: nothing is sent.
    boost::asio::awaitable<FetchResult<ArchivePage>> stories(ArchivePeriod period,
                                                             std::int64_t offset,
                                                             std::int64_t limit) const;
    boost::asio::awaitable<FetchResult<ArchiveStatus>> status() const;
    /// Of the stories at these addresses, all in one request.
    boost::asio::awaitable<FetchResult<ServerCredits>> credits(
        const std::vector<std::string>& stories) const;
};

}  // namespace kit
