#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/TextDates.h"
#include "NewsroomKit/HTTP/BodyFetch.h"

/// How answers of the archive are fetched and read.
namespace kit {

inline constexpr std::size_t kArchiveByteLimit = 4'194'304;

/// Throws RecordError when `body` is not JSON.
json::value archiveJSON(std::string_view body);

/// The answer, whole or not at all: throws RecordError, which names the place of the fault. Dates
/// must be text.
template <class Answer>
Answer archiveAnswer(std::string_view body) {
    const auto value = archiveJSON(body);
    requireTextDates<Answer>(value);
    return decode<Answer>(value);
}

/// What it throws is archiveAnswer's.
template <class Answer>
boost::asio::awaitable<FetchResult<Answer>> fetchArchiveAnswer(HTTPClient& http,
                                                               std::string address) {
    auto fetched = co_await fetchFile<Answer>(http, std::move(address), kArchiveByteLimit,
                                              archiveAnswer<Answer>);
    co_return std::move(fetched.value);
}

}  // namespace kit
