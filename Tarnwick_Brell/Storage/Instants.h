#pragma once

#include <cstdint>
#include <optional>

#include "NewsroomKit/Records/Instant.h"

/// Instants as the library's columns hold them.
namespace desk {

inline std::int64_t microseconds(newsroom::Instant instant) {
    return instant.time_since_epoch().count();
}

inline newsroom::Instant instantOf(std::int64_t microsecondsSince1970) {
    return newsroom::Instant(std::chrono::microseconds(microsecondsSince1970));
}

inline std::optional<std::int64_t> microseconds(const std::optional<newsroom::Instant>& instant) {
    return instant ? std::optional(microseconds(*instant)) : std::nullopt;
}

inline std::optional<newsroom::Instant> instantOf(const std::optional<std::int64_t>& number) {
    return number ? std::optional(instantOf(*number)) : std::nullopt;
}

}  // namespace desk
