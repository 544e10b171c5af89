#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Filings/Filing.h"
#include "NewsroomKit/HTTP/BodyFetch.h"

namespace kit {

/// The SEC's answers. It asks every program to name a mail address of its user, and counts the
/// requests of all programs of a network together.
struct FilingsAPI {
    static constexpr std::size_t kByteLimit = 8'388'608;

    HTTPClient& http;
    std::string contact;  ///< the user's mail address

    static std::string feedAddress(std::int64_t cik);
    static std::string listAddress(std::int64_t cik);
    /// A filing with all of its documents, as text.
    static std::string submissionAddress(std::int64_t cik, std::string_view accession);

    /// Throws RecordError.
    static std::vector<Filing> parse(std::string_view body);

    // A refusal of the mail address is status 401, one of too many requests 429, whatever status
    // the SEC gives its page.

    /// The newest 40 filings of a company.
    boost::asio::awaitable<FetchedFile<std::vector<Filing>>> companyFeed(std::int64_t cik) const;
    /// The last thousand or so with their periods. It may be hours behind the feed; letters come
    /// into it under old dates.
    boost::asio::awaitable<FetchedFile<std::vector<Filing>>> companyList(std::int64_t cik) const;
    boost::asio::awaitable<FetchedBody> submission(std::int64_t cik,
                                                   std::string_view accession) const;
    /// A page of the archive.
    boost::asio::awaitable<FetchedBody> document(std::string address) const;
};

}  // namespace kit
