#include "NewsroomKit/Trackers/Updates/CatalogueDay.h"

#include <charconv>
#include <chrono>
#include <memory>
#include <stdexcept>

#include <unicode/timezone.h>

#include "NewsroomKit/Text/ASCII.h"
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

const icu::TimeZone& newYork() {
    static const auto zone = [] {
        std::unique_ptr<icu::TimeZone> made(icu::TimeZone::createTimeZone("America/New_York"));
        if (!made || *made == icu::TimeZone::getUnknown()) {
            throw std::runtime_error("The Unicode library has no time zones.");
        }
        return made;
    }();
    return *zone;
}

enum class Clocks { greenwich, newYork };

/// How far New York's clocks are ahead at a time that `clocks` show.
milliseconds newYorkOffset(Instant::duration time, Clocks clocks) {
    std::int32_t standard = 0, summer = 0;
    UErrorCode error = U_ZERO_ERROR;
    newYork().getOffset(static_cast<UDate>(duration_cast<milliseconds>(time).count()),
                        clocks == Clocks::newYork, standard, summer, error);
    if (U_FAILURE(error)) throw std::runtime_error("New York's clocks are not known.");
    return milliseconds(standard + summer);
}

}  // namespace

std::optional<Instant> catalogueDay(std::string_view text) {
    const auto date = dayIn(firstCharacters(text, kDayCharacters));
    if (!date) return std::nullopt;
    const auto midnight = sys_days(*date);
    return midnight - newYorkOffset(midnight.time_since_epoch(), Clocks::newYork);
}

sys_days newYorkDay(Instant instant) {
    return floor<days>(instant + newYorkOffset(instant.time_since_epoch(), Clocks::greenwich));
}

minutes newYorkClock(Instant instant) {
    const auto shown = instant + newYorkOffset(instant.time_since_epoch(), Clocks::greenwich);
    return floor<minutes>(shown - floor<days>(shown));
}

}  // namespace kit
