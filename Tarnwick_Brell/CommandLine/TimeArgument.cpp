#include "Tarnwick_Brell/CommandLine/TimeArgument.h"

#include <charconv>
#include <chrono>
#include <string>

#include <QDateTime>

#include "Tarnwick_Brell/CommandLine/Failure.h"

namespace cli {

namespace {

/// Whether the time says what zone it is in: "Z", "+02:00".
bool namesZone(std::string_view instantText) {
    return instantText.find_first_of("Zz+-", instantText.find_first_of("Tt")) !=
           std::string_view::npos;
}

/// The moment at which local clocks show what UTC's show at `instant`.
kit::Instant inLocalZone(kit::Instant instant) {
    using namespace std::chrono;
    const auto utc = QDateTime::fromMSecsSinceEpoch(
        floor<milliseconds>(instant.time_since_epoch()).count(), Qt::UTC);
    const QDateTime local(utc.date(), utc.time(), Qt::LocalTime);
    return kit::Instant(milliseconds(local.toMSecsSinceEpoch()));
}

}  // namespace

kit::Instant parseTimeArgument(std::string_view text, kit::Instant now) {
    using namespace std::chrono;
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && number >= 0) {
        const auto unit = text.substr(static_cast<std::size_t>(end - text.data()));
        if (unit == "min" || unit == "m") return now - minutes(number);
        if (unit == "h") return now - hours(number);
        if (unit == "d") return now - days(number);
        if (unit == "w") return now - weeks(number);
    }
    std::string instantText(text);
    if (instantText.find_first_of("Tt") == std::string::npos) instantText += "T00:00:00";
    if (const auto instant = kit::parseISO8601(instantText))
        return namesZone(instantText) ? *instant : inLocalZone(*instant);
    throw WrongUsage(
        "\"" + std::string(text) +
        "\" is not a time: write 30min, 6h, 2d or 1w for a time ago, a day as 2026-11-02, or "
        "2026-11-02T08:30:00Z.");
}

}  // namespace cli
