#pragma once

#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// A time in which the desk fetched a file again and again. What happened in between is known.
struct WatchedSpan {
    Instant from{};
    Instant to{};

    bool operator==(const WatchedSpan&) const = default;
};

template <>
struct JSONFields<WatchedSpan> {
    static constexpr auto fields =
        std::tuple{field("from", &WatchedSpan::from), field("to", &WatchedSpan::to)};
};

}  // namespace kit
