#include "NewsroomKit/Feeds/FeedDates.h"

#include <array>
#include <chrono>

namespace newsroom {
namespace {

constexpr std::array<std::string_view, 7> weekdays{
    "monday", "tuesday", "wednesday", "thursday", "friday", "saturday", "sunday"};

constexpr std::array<std::string_view, 12> months{
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december"};

struct Zone {
    std::string_view name;
    int hours;
};

constexpr std::array zones{Zone{"gmt", 0},  Zone{"ut", 0},   Zone{"utc", 0},  Zone{"z", 0},
                           Zone{"est", -5}, Zone{"edt", -4}, Zone{"cst", -6}, Zone{"cdt", -5},
                           Zone{"mst", -7}, Zone{"mdt", -6}, Zone{"pst", -8}, Zone{"pdt", -7}};

constexpr std::string_view whiteSpace = " \t\r\n";
constexpr std::size_t shortestName = 3;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool beginsIgnoringCase(std::string_view lowerCaseName, std::string_view start) {
    if (start.size() > lowerCaseName.size()) return false;
    for (std::size_t i = 0; i < start.size(); ++i) {
        if (lowered(start[i]) != lowerCaseName[i]) return false;
    }
    return true;
}

template <std::size_t N>
std::optional<unsigned> indexOfName(const std::array<std::string_view, N>& names,
                                    std::string_view word) {
    if (word.size() < shortestName) return std::nullopt;
    for (unsigned i = 0; i < N; ++i) {
        if (beginsIgnoringCase(names[i], word)) return i;
    }
    return std::nullopt;
}

class DateReader {
public:
    explicit DateReader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    bool atSign() const { return rest_.starts_with('+') || rest_.starts_with('-'); }

    bool take(char c) {
        if (!rest_.starts_with(c)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool skipSpaces() {
        const auto next = std::min(rest_.find_first_not_of(whiteSpace), rest_.size());
        rest_.remove_prefix(next);
        return next > 0;
    }

    std::string_view takeWord() {
        std::size_t length = 0;
        while (length < rest_.size() && isLetter(rest_[length])) ++length;
        const auto word = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return word;
    }

    std::string_view takeDigits() {
        std::size_t length = 0;
        while (length < rest_.size() && isDigit(rest_[length])) ++length;
        const auto digits = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return digits;
    }

    /// One or two digits.
    std::optional<unsigned> takeShortNumber() {
        const auto digits = takeDigits();
        if (digits.empty() || digits.size() > 2) return std::nullopt;
        unsigned value = 0;
        for (char c : digits) value = value * 10 + static_cast<unsigned>(c - '0');
        return value;
    }

    std::optional<int> takeYear() {
        const auto digits = takeDigits();
        if (digits.size() != 4 && digits.size() != 2) return std::nullopt;
        int value = 0;
        for (char c : digits) value = value * 10 + (c - '0');
        if (digits.size() == 2) value += value < 50 ? 2000 : 1900;
        return value;
    }

private:
    std::string_view rest_;
};

std::optional<std::chrono::sys_days> existingDay(int year, unsigned month, unsigned day) {
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{month},
                                           std::chrono::day{day}};
    if (year < 1 || !date.ok()) return std::nullopt;
    return std::chrono::sys_days{date};
}

enum class Seconds { optional, required };

std::optional<std::chrono::seconds> readTime(DateReader& reader, Seconds rule) {
    const auto hour = reader.takeShortNumber();
    if (!hour || *hour > 23 || !reader.take(':')) return std::nullopt;
    const auto minute = reader.takeShortNumber();
    if (!minute || *minute > 59) return std::nullopt;
    unsigned second = 0;
    if (reader.take(':')) {
        const auto read = reader.takeShortNumber();
        if (!read || *read > 60) return std::nullopt;
        second = *read;
    } else if (rule == Seconds::required) {
        return std::nullopt;
    }
    return std::chrono::hours{*hour} + std::chrono::minutes{*minute} + std::chrono::seconds{second};
}

/// "±hhmm", "±hh:mm" or "±hh".
std::optional<std::chrono::minutes> readOffset(DateReader& reader) {
    const bool negative = reader.take('-');
    if (!negative && !reader.take('+')) return std::nullopt;
    const auto digits = reader.takeDigits();
    unsigned hours = 0;
    unsigned minutes = 0;
    if (digits.size() == 4) {
        hours = *DateReader(digits.substr(0, 2)).takeShortNumber();
        minutes = *DateReader(digits.substr(2)).takeShortNumber();
    } else if (digits.size() == 2 || digits.size() == 1) {
        hours = *DateReader(digits).takeShortNumber();
        if (reader.take(':')) {
            const auto read = reader.takeShortNumber();
            if (!read) return std::nullopt;
            minutes = *read;
        }
    } else {
        return std::nullopt;
    }
    if (hours > 23 || minutes > 59) return std::nullopt;
    const auto offset = std::chrono::hours{hours} + std::chrono::minutes{minutes};
    return negative ? -offset : offset;
}

/// A named zone, an offset, or "GMT+02:00"; nothing left to read is UTC.
std::optional<std::chrono::minutes> readZone(DateReader& reader) {
    if (reader.atEnd()) return std::chrono::minutes{0};
    if (reader.atSign()) return readOffset(reader);
    const auto word = reader.takeWord();
    for (const auto& zone : zones) {
        if (word.size() != zone.name.size() || !beginsIgnoringCase(zone.name, word)) continue;
        if (zone.hours == 0 && reader.atSign()) return readOffset(reader);
        return std::chrono::hours{zone.hours};
    }
    return std::nullopt;
}

/// Nothing outside the years that can be written, which a zone's offset may lead out of.
std::optional<Instant> writableInstant(Instant instant) {
    using std::chrono::sys_days;
    constexpr Instant first = sys_days{std::chrono::year{1} / 1 / 1};
    constexpr Instant end = sys_days{std::chrono::year{10'000} / 1 / 1};
    if (instant < first || instant >= end) return std::nullopt;
    return instant;
}

/// "Thu, 01 Oct 2026 08:30:00 GMT"; weekday, seconds and zone may be absent.
std::optional<Instant> readNamedMonthDate(std::string_view text) {
    DateReader reader(text);
    if (const auto word = reader.takeWord(); !word.empty()) {
        if (!indexOfName(weekdays, word) || !reader.take(',')) return std::nullopt;
        reader.skipSpaces();
    }
    const auto day = reader.takeShortNumber();
    if (!day || !reader.skipSpaces()) return std::nullopt;
    const auto month = indexOfName(months, reader.takeWord());
    if (!month || !reader.skipSpaces()) return std::nullopt;
    const auto year = reader.takeYear();
    if (!year || !reader.skipSpaces()) return std::nullopt;
    const auto date = existingDay(*year, *month + 1, *day);
    const auto time = readTime(reader, Seconds::optional);
    if (!date || !time) return std::nullopt;
    reader.skipSpaces();
    const auto offset = readZone(reader);
    if (!offset || !reader.atEnd()) return std::nullopt;
    return writableInstant(*date + *time - *offset);
}

/// "2026-10-01 08:30:00", always UTC.
std::optional<Instant> readNumberedDate(std::string_view text) {
    DateReader reader(text);
    const auto year = reader.takeDigits();
    if (year.size() != 4 || !reader.take('-')) return std::nullopt;
    const auto month = reader.takeShortNumber();
    if (!month || !reader.take('-')) return std::nullopt;
    const auto day = reader.takeShortNumber();
    if (!day || !reader.skipSpaces()) return std::nullopt;
    const auto date = existingDay(*DateReader(year).takeYear(), *month, *day);
    const auto time = readTime(reader, Seconds::required);
    if (!date || !time || !reader.atEnd()) return std::nullopt;
    return writableInstant(*date + *time);
}

}  // namespace

std::optional<Instant> parseFeedDate(std::string_view text) {
    const auto begin = text.find_first_not_of(whiteSpace);
    if (begin == std::string_view::npos) return std::nullopt;
    text = text.substr(begin, text.find_last_not_of(whiteSpace) + 1 - begin);

    if (const auto instant = parseISO8601(text)) return instant;
    if (const auto instant = readNamedMonthDate(text)) return instant;
    return readNumberedDate(text);
}

}  // namespace newsroom
