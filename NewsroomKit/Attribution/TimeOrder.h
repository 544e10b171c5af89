#pragma once

#include <optional>
#include <span>
#include <string>

#include "NewsroomKit/Attribution/Telling.h"

namespace kit {

/// Who was first by the times.
struct FirstByTime {
    const Telling* first = nullptr;  ///< null when the times do not say
    bool isSure = false;             ///< to the minute, and nobody had it earlier
};

FirstByTime firstByTime(std::span<const Telling> tellings);

/// The outlet's own earliest telling; null when there is none.
const Telling* earliestOf(std::span<const Telling> tellings, const std::string& key);

/// The earliest telling of another outlet than `first`, where that is the later one.
const Telling* nextAfter(std::span<const Telling> tellings, const Telling& first);

}  // namespace kit
