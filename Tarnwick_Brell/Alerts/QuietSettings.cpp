#include "Tarnwick_Brell/Alerts/QuietSettings.h"

#include <array>
#include <string>
#include <string_view>

namespace app {

namespace {

constexpr std::string_view kUntil = "until";

constexpr std::array<std::string_view, 7> kWeekdays{"mon", "tue", "wed", "thu",
                                                    "fri", "sat", "sun"};

std::chrono::minutes timeOf(const Defaults& defaults, std::string_view key) {
    return kit::minutesOfDay(defaults.value(key)).value_or(std::chrono::minutes());
}

std::optional<kit::Instant> storedUntil(const Defaults& defaults) {
    const auto memory = defaults.memory(Defaults::kQuietUntil);
    if (!memory || !memory->contains(std::string(kUntil))) return std::nullopt;
    return kit::parseISO8601(memory->at(std::string(kUntil)));
}

}  // namespace

kit::AlertQuiet quietOf(const Defaults& defaults) {
    kit::AlertQuiet quiet{.until = storedUntil(defaults)};
    if (!defaults.isOn(SettingKey::kQuietHours)) return quiet;
    kit::QuietHours hours{.from = timeOf(defaults, SettingKey::kQuietFrom),
                          .to = timeOf(defaults, SettingKey::kQuietTo),
                          .weekdays = {},
                          .zone = kit::TimeZone::here()};
    const auto days = weekdaysNamed(defaults.value(SettingKey::kQuietWeekdays));
    for (std::size_t day = 0; day < days.size(); ++day) {
        if (days[day]) hours.weekdays.push_back(static_cast<std::int64_t>(day) + 1);
    }
    quiet.hours = std::move(hours);
    return quiet;
}

std::array<bool, 7> weekdaysNamed(std::string_view text) {
    std::array<bool, 7> days{};
    for (std::size_t day = 0; day < days.size(); ++day)
        days[day] = text.find(kWeekdays[day]) != std::string_view::npos;
    return days;
}

std::string weekdaysText(const std::array<bool, 7>& days) {
    std::string text;
    for (std::size_t day = 0; day < days.size(); ++day) {
        if (days[day]) text += (text.empty() ? "" : ", ") + std::string(kWeekdays[day]);
    }
    return text;
}

std::optional<kit::Instant> quietUntil(const Defaults& defaults, kit::Instant now) {
    const auto until = storedUntil(defaults);
    return until && *until > now ? until : std::nullopt;
}

void setQuietUntil(Defaults& defaults, std::optional<kit::Instant> until) {
    Defaults::Memory memory;
    if (until) memory[std::string(kUntil)] = kit::iso8601Text(*until);
    defaults.remember(Defaults::kQuietUntil, memory);
}

}  // namespace app
