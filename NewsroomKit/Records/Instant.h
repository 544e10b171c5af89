#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kit {

/// An absolute point in time. Microseconds hold every fraction that feeds and web
/// services write, and keep equality exact.
using Instant = std::chrono::sys_time<std::chrono::microseconds>;

/// Tells the present moment. Whoever needs the time is given one, so that tests can set it.
using Clock = std::function<Instant()>;

double secondsSince1970(Instant instant);

/// Nothing when `seconds` is not finite or lies outside the years 0001 to 9999.
std::optional<Instant> instantFromSeconds(double seconds);

/// "2026-10-01T08:30:00Z", with a fraction only when there is one.
std::string iso8601Text(Instant instant);

/// Reads ISO 8601 with a "T" (or "t") between date and time: with or without seconds'
/// fraction (any number of digits, beyond microseconds cut off), with "Z", ±hh:mm, ±hhmm
/// or ±hh. The whole text must be the date; impossible days, hours and minutes give
/// nothing, the 60th second reads as the next minute. A time without a zone is UTC.
std::optional<Instant> parseISO8601(std::string_view text);

}  // namespace kit
