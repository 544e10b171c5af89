#pragma once

#include <cstdint>
#include <optional>

#include "NewsroomKit/Records/Instant.h"

/// Conversion of instants to and from the library's columns.
namespace app {

inline std::int64_t microseconds(kit::Instant instant) {
    return instant.time_since_epoch().count();
}

inline kit::Instant instantOf(std::int64_t microsecondsSince1970) {
    return kit::Instant(std::chrono::microseconds(microsecondsSince1970));
}

inline std::optional<std::int64_t> microseconds(const std::optional<kit::Instant>& instant) {
    return instant ? std::optional(microseconds(*instant)) : std::nullopt;
}

inline std::optional<kit::Instant> instantOf(const std::optional<std::int64_t>& number) {
    return number ? std::optional(instantOf(*number)) : std::nullopt;
}

/// For what is stamped with this computer's clock wherever it is written from.
inline kit::Instant systemInstant() {
    return std::chrono::time_point_cast<kit::Instant::duration>(std::chrono::system_clock::now());
}

}  // namespace app
