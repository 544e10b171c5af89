#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Text/TimeZone.h"

namespace kit {

/// Hours of some nights, or days, at which nothing is told. Reads and writes
/// {"from": "22:00", "to": "07:00", "weekdays": [1, 7], "zone": "Europe/Berlin"}, where 1 is Monday
/// and the zone may be missing (UTC).
struct QuietHours {
    std::chrono::minutes from{};  ///< since midnight
    std::chrono::minutes to{};    ///< before `from`, or equal: of the next day
    std::vector<std::int64_t> weekdays{1, 2, 3, 4, 5, 6, 7};  ///< on which they begin
    TimeZone zone{"UTC"};

    /// When the quiet hours end that the moment is in; nothing when it is in none. `from` equal to
    /// `to` means none. Where clocks are changed the hours are as long as they can be.
    std::optional<Instant> endAfter(Instant moment) const;
};

/// Throws RecordError.
template <>
struct Codec<QuietHours> {
    static QuietHours decode(const json::value& value);
};

/// "22:30" as minutes since midnight; nothing when it is no time of day.
std::optional<std::chrono::minutes> minutesOfDay(std::string_view text);

}  // namespace kit
