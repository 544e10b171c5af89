#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Court/DocketSheet.h"
#include "NewsroomKit/HTTP/BodyFetch.h"

namespace kit {

/// Dockets as courts and CourtListener publish them.
struct DocketAPI {
    static constexpr std::size_t kByteLimit = 8'388'608;

    HTTPClient& http;

    /// CourtListener's feed of a docket, which needs no key.
    static std::string feedAddress(std::int64_t docket);
    /// The page of a docket for people to read.
    static std::string docketAddress(std::int64_t docket);

    /// CourtListener's search for cases with Apple as a party, the newest first.
    static std::string searchAddress();

    /// Throws RecordError when the body has no docket entries in it.
    static DocketSheet parse(std::string_view body);

    /// Throws what parse throws.
    boost::asio::awaitable<FetchedFile<DocketSheet>> sheet(std::string address) const;

    /// Asks the search with the token of a user's account, for two pages of results at most: it
    /// counts requests by the day. Throws what parse throws.
    boost::asio::awaitable<FetchedFile<DocketSheet>> search(std::string token) const;
};

}  // namespace kit
