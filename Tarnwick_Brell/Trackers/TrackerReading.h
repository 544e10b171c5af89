#pragma once

#include <optional>
#include <string>

#include "NewsroomKit/Records/Instant.h"

namespace app {

/// What the desk knows of a tracker: the last good value, and what has gone wrong since.
template <class T>
struct TrackerReading {
    std::optional<T> value{};
    std::optional<kit::Instant> fetchedAt{};  ///< when an answer last said so
    std::optional<std::string> error{};  ///< why the value is no newer: a sentence for the user

    bool operator==(const TrackerReading&) const = default;
};

}  // namespace app
