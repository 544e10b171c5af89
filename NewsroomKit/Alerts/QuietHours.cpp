#include "NewsroomKit/Alerts/QuietHours.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace kit {

using namespace std::chrono;

namespace {

std::optional<int> numberOf(std::string_view text, int below) {
    int number = 0;
    const auto* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end || number < 0 || number >= below) return std::nullopt;
    return number;
}

struct QuietHoursForm {
    std::string from{};
    std::string to{};
    std::vector<std::int64_t> weekdays{};
    std::optional<std::string> zone{};
};

minutes timeIn(const std::string& text, std::string_view key) {
    if (const auto time = minutesOfDay(text)) return *time;
    throw RecordError(std::string(key), "a time such as 22:30 is expected");
}

}  // namespace

template <>
struct JSONFields<QuietHoursForm> {
    static constexpr auto fields = std::tuple{
        field("from", &QuietHoursForm::from), field("to", &QuietHoursForm::to),
        field("weekdays", &QuietHoursForm::weekdays), field("zone", &QuietHoursForm::zone)};
};

std::optional<minutes> minutesOfDay(std::string_view text) {
    const auto colon = text.find(':');
    if (colon == std::string_view::npos || text.size() - colon != 3) return std::nullopt;
    const auto hour = numberOf(text.substr(0, colon), 24);
    const auto minute = numberOf(text.substr(colon + 1), 60);
    if (!hour || !minute) return std::nullopt;
    return hours(*hour) + minutes(*minute);
}

QuietHours Codec<QuietHours>::decode(const json::value& value) {
    const auto form = kit::decode<QuietHoursForm>(value);
    for (const auto day : form.weekdays) {
        if (day < 1 || day > 7) throw RecordError("weekdays", "days from 1 to 7 are expected");
    }
    try {
        return {.from = timeIn(form.from, "from"),
                .to = timeIn(form.to, "to"),
                .weekdays = form.weekdays,
                .zone = TimeZone(form.zone.value_or("UTC"))};
    } catch (const std::invalid_argument& error) {
        throw RecordError("zone", error.what());
    }
}

std::optional<Instant> QuietHours::endAfter(Instant moment) const {
    if (from == to) return std::nullopt;
    const auto today = floor<days>(zone.shownAt(moment));
    std::optional<Instant> end;
    // Those that began yesterday may still go on, and these may last into those of today.
    for (const auto day : {today - days(1), today}) {
        const auto weekday = static_cast<std::int64_t>(std::chrono::weekday(day).iso_encoding());
        if (std::ranges::find(weekdays, weekday) == weekdays.end()) continue;
        const auto lastDay = to > from ? day : day + days(1);
        const auto ends = zone.lastOf(lastDay + to);
        if (zone.firstOf(day + from) <= moment && moment < ends) end = ends;
    }
    return end;
}

}  // namespace kit
