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

/// The service's archive of stories that the desk's sources published. Operations throw what
/// archiveAnswer throws; a faulty answer is refused as a whole.
struct StoryArchiveAPI {
    std::string base;  ///< ends in "/wp-json/tb-archive/v1/"; see archiveBaseAt()
    HTTPClient& http;

    /// Throws UnsendableInstant at once, before anything is sent.
    boost::asio::awaitable<FetchResult<ArchivePage>> stories(ArchivePeriod period,
                                                             std::int64_t offset,
                                                             std::int64_t limit) const;
    boost::asio::awaitable<FetchResult<ArchiveStatus>> status() const;
    /// The credits of the stories at these addresses, in one request.
    boost::asio::awaitable<FetchResult<ServerCredits>> credits(
        const std::vector<std::string>& stories) const;
};

}  // namespace kit
