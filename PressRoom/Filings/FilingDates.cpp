#include "PressRoom/Filings/FilingDates.h"

#include <algorithm>

#include <fmt/format.h>

#include "PressRoom/Trackers/Market.h"
#include "PressRoom/Trackers/WorldTime.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

constexpr hours kEastern{-5};

/// New York's clocks, as if they were UTC.
sys_seconds onNewYorksClocks(sys_seconds instant) {
    return instant + americanOffset(instant, kEastern);
}

bool isBusinessDay(sys_days day) {
    const weekday name(day);
    return name != Saturday && name != Sunday;
}

bool keepsItsDayUntilTen(const std::string& form) {
    return form.starts_with("3") || form.starts_with("4/") || form == "4" ||
           form.starts_with("5") || form.starts_with("144") || form.starts_with("SC");
}

}  // namespace

sys_seconds acceptanceOf(const WorldFiling& filing, sys_seconds anchor) {
    return worldTime(anchor, filing.minutesAgo);
}

bool isShown(const WorldFiling& filing, sys_seconds anchor, sys_seconds now) {
    return worldTime(anchor, filing.shownMinutesAgo.value_or(filing.minutesAgo)) <= now;
}

std::string accessionOf(const WorldFiler& filer, const WorldFiling& filing, sys_seconds anchor) {
    const auto year = isoDate(onNewYorksClocks(acceptanceOf(filing, anchor)), "").substr(2, 2);
    return fmt::format("{}-{}-{:06}", filing.agent.value_or(fmt::format("{:010}", filer.cik)), year,
                       filing.number);
}

std::string filingDay(const WorldFiling& filing, sys_seconds anchor) {
    const auto accepted = onNewYorksClocks(acceptanceOf(filing, anchor));
    auto day = floor<days>(accepted);
    const auto last = keepsItsDayUntilTen(filing.form) ? 22h + 0min : 17h + 30min;
    if (accepted - day >= last) day += days(1);
    while (!isBusinessDay(day)) day += days(1);
    return isoDate(day, "").substr(0, 10);
}

std::string dayBefore(const WorldFiling& filing, sys_seconds anchor, double daysBefore) {
    const auto before = seconds(std::llround(daysBefore * 86'400));
    return isoDate(onNewYorksClocks(acceptanceOf(filing, anchor) - before), "").substr(0, 10);
}

std::optional<std::string> periodOf(const WorldFiling& filing, sys_seconds anchor) {
    if (!filing.periodDaysBefore) return std::nullopt;
    return dayBefore(filing, anchor, *filing.periodDaysBefore);
}

std::string newYorkTime(sys_seconds instant) {
    const auto offset = americanOffset(instant, kEastern);
    return isoDate(instant + offset, fmt::format("-{:02}:00", -offset.count()));
}

std::string digitsOf(const std::string& text) {
    std::string digits;
    for (const char c : text.substr(0, 19)) {
        if (c >= '0' && c <= '9') digits += c;
    }
    return digits;
}

std::string slashedDay(const std::string& day) {
    return day.substr(5, 2) + "/" + day.substr(8, 2) + "/" + day.substr(0, 4);
}

}  // namespace pressroom
