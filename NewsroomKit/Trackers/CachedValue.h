#pragma once

#include <optional>
#include <string>

#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// The last good value of a tracked file, and what has gone wrong since.
template <class T>
struct CachedValue {
    std::optional<T> value{};
    std::optional<Instant> fetchedAt{};  ///< when an answer last confirmed the value
    std::optional<std::string> error{};  ///< why the value is no newer: a sentence for the user

    bool operator==(const CachedValue&) const = default;
};

}  // namespace kit
