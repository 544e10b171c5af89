#include "NewsroomKit/Trackers/Updates/CatalogueDay.h"

#include <charconv>
#include <chrono>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/TimeZone.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

using namespace std::chrono;

constexpr std::size_t kDayCharacters = 10;

/// Takes a number of at most `digits` digits from the front.
std::optional<unsigned> takeNumber(std::string_view& text, std::size_t digits) {
    std::size_t length = 0;
    while (length < text.size() && isASCIIDigit(text[length])) ++length;
    if (length == 0 || length > digits) return std::nullopt;
    unsigned number = 0;
    std::from_chars(text.data(), text.data() + length, number);
    text.remove_prefix(length);
    return number;
}

bool takeHyphen(std::string_view& text) {
    if (!text.starts_with('-')) return false;
    text.remove_prefix(1);
    return true;
}

std::optional<year_month_day> dayIn(std::string_view text) {
    const auto yearNumber = takeNumber(text, 4);
    if (!yearNumber || !takeHyphen(text)) return std::nullopt;
    const auto monthNumber = takeNumber(text, 2);
    if (!monthNumber || !takeHyphen(text)) return std::nullopt;
    const auto dayNumber = takeNumber(text, 2);
    if (!dayNumber || !text.empty() || *yearNumber == 0) return std::nullopt;
    const auto date = year(static_cast<int>(*yearNumber)) / month(*monthNumber) / day(*dayNumber);
    return date.ok() ? std::optional(date) : std::nullopt;
}

const TimeZone& newYork() {
    static const TimeZone zone("America/New_York");
    return zone;
}

}  // namespace

std::optional<Instant> catalogueDay(std::string_view text) {
    const auto date = dayIn(firstCharacters(text, kDayCharacters));
    if (!date) return std::nullopt;
    return newYork().firstOf(local_days(*date));
}

sys_days newYorkDay(Instant instant) {
    return sys_days(floor<days>(newYork().shownAt(instant)).time_since_epoch());
}

minutes newYorkClock(Instant instant) {
    const auto shown = newYork().shownAt(instant);
    return floor<minutes>(shown - floor<days>(shown));
}

}  // namespace kit
