#pragma once

#include <memory>
#include <string>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Backend/WatchedFile.h"
#include "NewsroomKit/HTTP/BodyFetch.h"

namespace kit {

/// An answer of a watched file. The cache holds the counts alone; what was read is for the watch.
struct WatchedAnswer {
    std::int64_t entries = 0;
    std::int64_t bytes = 0;
    std::shared_ptr<const std::string> body{};  ///< as sent; null in the cached copy
    std::shared_ptr<const std::vector<WatchedRecord>> records{};
    Validators validators{};

    bool operator==(const WatchedAnswer&) const = default;
};

template <>
struct JSONFields<WatchedAnswer> {
    static constexpr auto fields = std::tuple{field("entries", &WatchedAnswer::entries),
                                              field("bytes", &WatchedAnswer::bytes)};
};

struct BackendAPI {
    /// Catalogues of installers have some megabytes.
    static constexpr std::size_t kByteLimit = 67'108'864;

    /// The cached copy. Throws RecordError.
    static WatchedAnswer parse(std::string_view body);

    /// Its body is the copy for the cache. `known` are the validators of the answer that the
    /// caller has, if it wants none that is the same. The client and the file must outlive the
    /// coroutine. Throws RecordError when the file can't be read.
    static boost::asio::awaitable<FetchedFile<WatchedAnswer>> file(HTTPClient& http,
                                                                   const WatchedFile& file,
                                                                   Validators known);
};

}  // namespace kit
