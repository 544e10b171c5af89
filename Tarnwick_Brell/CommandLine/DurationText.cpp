#include "Tarnwick_Brell/CommandLine/DurationText.h"

#include <chrono>

#include <fmt/format.h>

namespace cli {

namespace {

using namespace std::chrono;

std::string withRest(long long large, const char* unit, long long rest, const char* restUnit) {
    return rest == 0 ? fmt::format("{} {}", large, unit)
                     : fmt::format("{} {} {} {}", large, unit, rest, restUnit);
}

}  // namespace

std::string spanText(kit::Instant::duration span) {
    const auto whole = floor<minutes>(span);
    if (whole < minutes(1)) return "under a minute";
    if (whole < hours(1)) return fmt::format("{} min", whole.count());
    const auto wholeHours = floor<hours>(whole);
    if (whole < days(1)) {
        return withRest(wholeHours.count(), "h", (whole - wholeHours).count(), "min");
    }
    const auto wholeDays = floor<days>(whole);
    return withRest(wholeDays.count(), "d", (wholeHours - wholeDays).count(), "h");
}

std::string distanceText(kit::Instant then, kit::Instant now) {
    const bool isAhead = then > now;
    const auto distance = isAhead ? then - now : now - then;
    if (distance < minutes(1)) return "now";
    const auto text = distance < hours(1)  ? fmt::format("{} min", floor<minutes>(distance).count())
                      : distance < days(1) ? fmt::format("{} h", floor<hours>(distance).count())
                                           : fmt::format("{} d", floor<days>(distance).count());
    return isAhead ? "in " + text : text + " ago";
}

}  // namespace cli
