#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/TextDates.h"
#include "NewsroomKit/HTTP/BodyFetch.h"

/// Fetches and reads answers of the archive.
namespace kit {

inline constexpr std::size_t kArchiveByteLimit = 4'194'304;

/// Decodes a complete answer, whose dates must be text. Throws RecordError with the path of a
/// fault.
template <class Answer>
Answer archiveAnswer(std::string_view body) {
    const auto value = parseJSON(body);
    requireTextDates<Answer>(value);
    return decode<Answer>(value);
}

/// Throws what archiveAnswer throws.
template <class Answer>
boost::asio::awaitable<FetchResult<Answer>> fetchArchiveAnswer(HTTPClient& http,
                                                               std::string address) {
    auto fetched = co_await fetchFile<Answer>(http, std::move(address), kArchiveByteLimit,
                                              archiveAnswer<Answer>);
    co_return std::move(fetched.value);
}

}  // namespace kit
