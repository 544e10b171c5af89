#pragma once

#include <cstdint>

#include "NewsroomKit/Records/Instant.h"

/// Instants as the library's columns hold them.
namespace desk {

inline std::int64_t microseconds(newsroom::Instant instant) {
    return instant.time_since_epoch().count();
}

inline newsroom::Instant instantOf(std::int64_t microsecondsSince1970) {
    return newsroom::Instant(std::chrono::microseconds(microsecondsSince1970));
}

}  // namespace desk
