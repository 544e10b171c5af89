#include "NewsroomKit/Records/Instant.h"

#include <cmath>
#include <cstdint>

namespace kit {
namespace {

using std::chrono::microseconds;
using std::chrono::sys_days;

constexpr int microsPerSecond = 1'000'000;
constexpr int fractionDigits = 6;

constexpr Instant firstInstant = sys_days{std::chrono::year{1} / 1 / 1};
constexpr Instant endOfInstants = sys_days{std::chrono::year{10'000} / 1 / 1};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Parses the text from its front; each step leaves the rest.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    bool atDigit() const { return !rest_.empty() && isDigit(rest_.front()); }

    bool consumeOneOf(std::string_view characters) {
        if (rest_.empty() || characters.find(rest_.front()) == std::string_view::npos) return false;
        rest_.remove_prefix(1);
        return true;
    }

    std::optional<int> readNumber(std::size_t digits) {
        if (rest_.size() < digits) return std::nullopt;
        int value = 0;
        for (char c : rest_.substr(0, digits)) {
            if (!isDigit(c)) return std::nullopt;
            value = value * 10 + (c - '0');
        }
        rest_.remove_prefix(digits);
        return value;
    }

    /// "±hh:mm", "±hhmm" or "±hh" in minutes.
    std::optional<int> readOffset() {
        const bool negative = rest_.starts_with('-');
        if (!consumeOneOf("+-")) return std::nullopt;
        const auto hours = readNumber(2);
        if (!hours || *hours > 23) return std::nullopt;
        int minutes = 0;
        const bool colon = consumeOneOf(":");
        if (colon || !atEnd()) {
            const auto read = readNumber(2);
            if (!read || *read > 59) return std::nullopt;
            minutes = *read;
        }
        const int offset = *hours * 60 + minutes;
        return negative ? -offset : offset;
    }

    /// Digits after the decimal sign; those beyond microseconds are passed over.
    std::optional<microseconds> readFraction() {
        if (!atDigit()) return std::nullopt;
        int value = 0;
        int read = 0;
        for (; atDigit(); rest_.remove_prefix(1)) {
            if (read == fractionDigits) continue;
            value = value * 10 + (rest_.front() - '0');
            ++read;
        }
        for (; read < fractionDigits; ++read) value *= 10;
        return microseconds{value};
    }

private:
    std::string_view rest_;
};

std::optional<Instant> readDay(Reader& reader) {
    const auto year = reader.readNumber(4);
    if (!year || *year == 0 || !reader.consumeOneOf("-")) return std::nullopt;
    const auto month = reader.readNumber(2);
    if (!month || !reader.consumeOneOf("-")) return std::nullopt;
    const auto day = reader.readNumber(2);
    if (!day) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year{*year},
                                           std::chrono::month{static_cast<unsigned>(*month)},
                                           std::chrono::day{static_cast<unsigned>(*day)}};
    if (!date.ok()) return std::nullopt;
    return sys_days{date};
}

std::optional<microseconds> readTimeOfDay(Reader& reader) {
    const auto hour = reader.readNumber(2);
    if (!hour || *hour > 23 || !reader.consumeOneOf(":")) return std::nullopt;
    const auto minute = reader.readNumber(2);
    if (!minute || *minute > 59 || !reader.consumeOneOf(":")) return std::nullopt;
    const auto second = reader.readNumber(2);
    if (!second || *second > 60) return std::nullopt;
    microseconds time =
        std::chrono::hours{*hour} + std::chrono::minutes{*minute} + std::chrono::seconds{*second};
    if (reader.consumeOneOf(".,")) {
        const auto fraction = reader.readFraction();
        if (!fraction) return std::nullopt;
        time += *fraction;
    }
    return time;
}

void appendNumber(std::string& text, int value, std::size_t digits) {
    const std::string number = std::to_string(value);
    if (number.size() < digits) text.append(digits - number.size(), '0');
    text += number;
}

}  // namespace

double secondsSince1970(Instant instant) {
    return static_cast<double>(instant.time_since_epoch().count()) / microsPerSecond;
}

std::optional<Instant> instantFromSeconds(double seconds) {
    // Written so that a NaN fails the comparison.
    if (!(seconds >= secondsSince1970(firstInstant) && seconds < secondsSince1970(endOfInstants))) {
        return std::nullopt;
    }
    const Instant instant{microseconds{std::llround(seconds * microsPerSecond)}};
    if (instant >= endOfInstants) return std::nullopt;
    return instant;
}

std::string iso8601Text(Instant instant) {
    const auto day = std::chrono::floor<std::chrono::days>(instant);
    const std::chrono::year_month_day date{day};
    const std::chrono::hh_mm_ss time{instant - day};
    std::string text;
    appendNumber(text, static_cast<int>(date.year()), 4);
    text += '-';
    appendNumber(text, static_cast<int>(static_cast<unsigned>(date.month())), 2);
    text += '-';
    appendNumber(text, static_cast<int>(static_cast<unsigned>(date.day())), 2);
    text += 'T';
    appendNumber(text, static_cast<int>(time.hours().count()), 2);
    text += ':';
    appendNumber(text, static_cast<int>(time.minutes().count()), 2);
    text += ':';
    appendNumber(text, static_cast<int>(time.seconds().count()), 2);
    if (const auto fraction = static_cast<int>(time.subseconds().count()); fraction != 0) {
        text += '.';
        appendNumber(text, fraction, fractionDigits);
        text.erase(text.find_last_not_of('0') + 1);
    }
    text += 'Z';
    return text;
}

std::optional<Instant> parseISO8601(std::string_view text) {
    Reader reader(text);
    const auto day = readDay(reader);
    if (!day || !reader.consumeOneOf("Tt")) return std::nullopt;
    const auto time = readTimeOfDay(reader);
    if (!time) return std::nullopt;
    Instant instant = *day + *time;
    if (!reader.atEnd() && !reader.consumeOneOf("Zz")) {
        const auto offset = reader.readOffset();
        if (!offset) return std::nullopt;
        instant -= std::chrono::minutes{*offset};
    }
    if (!reader.atEnd() || instant < firstInstant || instant >= endOfInstants) return std::nullopt;
    return instant;
}

}  // namespace kit
