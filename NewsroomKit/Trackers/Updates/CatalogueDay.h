#pragma once

#include <chrono>
#include <optional>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// The midnight, on New York's clocks, of the day that stands in the first ten characters
/// ("2026-03-24"); what follows is passed over. Nothing when that is no day of the calendar.
std::optional<Instant> catalogueDay(std::string_view text);

/// The day of New York's calendar in which the instant lies.
std::chrono::sys_days newYorkDay(Instant instant);

/// What New York's clocks show then, since midnight.
std::chrono::minutes newYorkClock(Instant instant);

}  // namespace kit
