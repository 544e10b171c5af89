#pragma once

#include <cstdint>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"

namespace app {

/// The number of a story in the library is its place in the wire: the higher, the newer.
/// Each microsecond of publication time has room for so many stories; among stories of one
/// moment the one that came later has the higher number.
inline constexpr std::int64_t kStoriesPerMicrosecond = 1024;

/// The lowest number of stories published at that moment. Moments that a number can't hold
/// (before 1750, after 2200) count as the nearest that it can.
std::int64_t firstStoryNumber(kit::Instant publishedAt);

/// Whether a story has no date of its own, as far as can be told: it counts as published at
/// the moment in which it was fetched.
bool isUndated(kit::Instant publishedAt, kit::Instant seen);

/// Equal for titles that differ in letter case, accents, width or white space only.
std::int64_t titleKey(std::string_view title);

}  // namespace app
