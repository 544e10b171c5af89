#include "NewsroomKit/Feeds/FeedDates.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

constexpr auto none = std::string_view::npos;

/// The folded names of each month in English, German, French, Spanish, Italian, Portuguese and
/// Dutch, and abbreviations that omit letters.
constexpr std::array<std::string_view, 12> months{
    "january januar janner janvier enero gennaio janeiro",
    "february februar feber fevrier febrero febbraio fevereiro",
    "march marz maerz mrz mars marzo marco maart mrt",
    "april avril abril aprile",
    "may mai mayo maggio maio mei",
    "june juni juin junio giugno junho",
    "july juli juillet julio luglio julho",
    "august aout agosto augustus",
    "september septembre septiembre setiembre settembre setembro",
    "october oktober octobre octubre ottobre outubro",
    "november novembre noviembre novembro",
    "december dezember decembre diciembre dicembre dezembro"};

struct Zone {
    std::string_view name;
    std::chrono::minutes offset;
};

using namespace std::chrono_literals;

constexpr std::array zones{
    Zone{"gmt", 0h},   Zone{"ut", 0h},    Zone{"utc", 0h},         Zone{"z", 0h},
    Zone{"est", -5h},  Zone{"edt", -4h},  Zone{"cst", -6h},        Zone{"cdt", -5h},
    Zone{"mst", -7h},  Zone{"mdt", -6h},  Zone{"pst", -8h},        Zone{"pdt", -7h},
    Zone{"bst", 1h},   Zone{"cet", 1h},   Zone{"cest", 2h},        Zone{"eet", 2h},
    Zone{"eest", 3h},  Zone{"msk", 3h},   Zone{"ist", 5h + 30min}, Zone{"jst", 9h},
    Zone{"aest", 10h}, Zone{"aedt", 11h}, Zone{"nzst", 12h},       Zone{"nzdt", 13h}};

constexpr std::string_view whiteSpace = " \t\r\n";
constexpr std::string_view separators = " \t\r\n,.-";
constexpr std::size_t shortestName = 3;

/// The month, from 1, that has a name beginning with this word; nothing when there are two, as for
/// "jui" (juin, juillet).
std::optional<unsigned> monthNamed(std::string_view word) {
    const auto start = fold(word);
    if (start.size() < shortestName) return std::nullopt;
    std::optional<unsigned> found;
    for (unsigned index = 0; index < months.size(); ++index) {
        const auto names = months[index];
        bool fits = names.starts_with(start);
        for (auto at = names.find(' '); !fits && at != none; at = names.find(' ', at + 1)) {
            fits = names.substr(at + 1).starts_with(start);
        }
        if (!fits) continue;
        if (found) return std::nullopt;
        found = index + 1;
    }
    return found;
}

class DateReader {
public:
    explicit DateReader(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    bool atSign() const { return rest_.starts_with('+') || rest_.starts_with('-'); }

    bool consume(char c) {
        if (!rest_.starts_with(c)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool atDigit() const { return !rest_.empty() && isASCIIDigit(rest_.front()); }
    bool atTime() const { return rest_.substr(0, 3).find(':') != none; }

    bool skipSpaces() { return skip(whiteSpace); }
    bool skipSeparators() { return skip(separators); }

    /// Letters of any script.
    std::string_view readWord() {
        return readWhile([](char c) { return isASCIILetter(c) || !isASCII(c); });
    }

    std::string_view readDigits() { return readWhile(isASCIIDigit); }

    /// Skips "(Central European Time)", which is only for people.
    void skipComment() {
        if (rest_.starts_with('(') && rest_.find(')') == rest_.size() - 1) rest_ = {};
    }

    /// One or two digits.
    std::optional<unsigned> readShortNumber() {
        const auto digits = readDigits();
        if (digits.empty() || digits.size() > 2) return std::nullopt;
        unsigned value = 0;
        for (char c : digits) value = value * 10 + static_cast<unsigned>(c - '0');
        return value;
    }

    std::optional<int> readYear() {
        const auto digits = readDigits();
        if (digits.size() != 4 && digits.size() != 2) return std::nullopt;
        int value = 0;
        for (char c : digits) value = value * 10 + (c - '0');
        if (digits.size() == 2) value += value < 50 ? 2000 : 1900;
        return value;
    }

private:
    bool skip(std::string_view characters) {
        const auto next = std::min(rest_.find_first_not_of(characters), rest_.size());
        rest_.remove_prefix(next);
        return next > 0;
    }

    template <class Predicate>
    std::string_view readWhile(Predicate belongs) {
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), belongs);
        const auto read = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
        rest_.remove_prefix(read.size());
        return read;
    }

    std::string_view rest_;
};

std::optional<std::chrono::sys_days> existingDay(int year, unsigned month, unsigned day) {
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{month},
                                           std::chrono::day{day}};
    if (year < 1 || !date.ok()) return std::nullopt;
    return std::chrono::sys_days{date};
}

/// Reads "8:30", "08:30:15" or "08:30:15.250"; the fraction is dropped.
std::optional<std::chrono::seconds> readTime(DateReader& reader) {
    const auto hour = reader.readShortNumber();
    if (!hour || *hour > 23 || !reader.consume(':')) return std::nullopt;
    const auto minute = reader.readShortNumber();
    if (!minute || *minute > 59) return std::nullopt;
    unsigned second = 0;
    if (reader.consume(':')) {
        const auto read = reader.readShortNumber();
        if (!read || *read > 60) return std::nullopt;
        second = *read;
        if (reader.consume('.') && reader.readDigits().empty()) return std::nullopt;
    }
    return std::chrono::hours{*hour} + std::chrono::minutes{*minute} + std::chrono::seconds{second};
}

/// "±hhmm", "±hh:mm" or "±hh".
std::optional<std::chrono::minutes> readOffset(DateReader& reader) {
    const bool negative = reader.consume('-');
    if (!negative && !reader.consume('+')) return std::nullopt;
    const auto digits = reader.readDigits();
    unsigned hours = 0;
    unsigned minutes = 0;
    if (digits.size() == 4) {
        hours = *DateReader(digits.substr(0, 2)).readShortNumber();
        minutes = *DateReader(digits.substr(2)).readShortNumber();
    } else if (digits.size() == 2 || digits.size() == 1) {
        hours = *DateReader(digits).readShortNumber();
        if (reader.consume(':')) {
            const auto read = reader.readShortNumber();
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

/// Reads a named zone, an offset, or "GMT+02:00"; the end of the text means UTC.
std::optional<std::chrono::minutes> readZone(DateReader& reader) {
    if (reader.atEnd()) return std::chrono::minutes{0};
    if (reader.atSign()) return readOffset(reader);
    const auto word = reader.readWord();
    for (const auto& zone : zones) {
        if (!equalsLowercase(word, zone.name)) continue;
        if (zone.offset == 0min && reader.atSign()) return readOffset(reader);
        return zone.offset;
    }
    return std::nullopt;
}

/// Nothing outside the years 0001 to 9999, which a zone's offset may lead out of.
std::optional<Instant> writableInstant(Instant instant) {
    using std::chrono::sys_days;
    constexpr Instant first = sys_days{std::chrono::year{1} / 1 / 1};
    constexpr Instant end = sys_days{std::chrono::year{10'000} / 1 / 1};
    if (instant < first || instant >= end) return std::nullopt;
    return instant;
}

/// Reads the rest after the day: nothing, which means midnight UTC, or a time and its zone.
std::optional<Instant> readRestOfDate(DateReader& reader, std::chrono::sys_days day) {
    if (reader.atEnd()) return writableInstant(day);
    const auto time = readTime(reader);
    if (!time) return std::nullopt;
    reader.skipSpaces();
    const auto offset = readZone(reader);
    if (!offset) return std::nullopt;
    reader.skipSpaces();
    reader.skipComment();
    return reader.atEnd() ? writableInstant(day + *time - *offset) : std::nullopt;
}

/// Reads the words before the first number: a weekday in any language, a month, both or neither.
/// Gives the last of them, or nothing when there are too many.
std::optional<std::string_view> readLeadingWords(DateReader& reader) {
    constexpr int mostWords = 2;
    std::string_view last;
    int count = 0;
    for (auto word = reader.readWord(); !word.empty(); word = reader.readWord()) {
        last = word;
        if (++count > mostWords) return std::nullopt;
        reader.skipSeparators();
    }
    return last;
}

/// Reads the month after its day, with the separators around it: "Oct", "octobre", "de outubro de".
/// Reads nothing when there is no word; an unknown word is month 0.
std::optional<unsigned> readMonthBehindDay(DateReader& reader) {
    constexpr std::string_view of = "de";
    auto word = reader.readWord();
    if (word.empty()) return std::nullopt;
    if (equalsLowercase(word, of) && reader.skipSeparators()) word = reader.readWord();
    if (!reader.skipSeparators()) return 0;
    if (!reader.atDigit() && equalsLowercase(reader.readWord(), of)) reader.skipSeparators();
    return monthNamed(word).value_or(0);
}

/// Reads "08:30:00 GMT 2026" after "Thu Oct 1", as C and Java write dates.
std::optional<Instant> readTimeAndYear(DateReader& reader, unsigned month, unsigned day) {
    const auto time = readTime(reader);
    if (!time || !reader.skipSpaces()) return std::nullopt;
    std::optional<std::chrono::minutes> offset = 0min;
    if (!reader.atDigit()) offset = readZone(reader);
    reader.skipSpaces();
    const auto year = reader.readYear();
    if (!offset || !year || !reader.atEnd()) return std::nullopt;
    const auto date = existingDay(*year, month, day);
    return date ? writableInstant(*date + *time - *offset) : std::nullopt;
}

/// Reads "Thu, 01 Oct 2026 08:30:00 GMT" and "Oct 1 2026"; only day, month and year are required. A
/// word before the day is a weekday when the month follows the day: "mar, 17 mar 2026".
std::optional<Instant> readNamedMonthDate(std::string_view text) {
    DateReader reader(text);
    const auto word = readLeadingWords(reader);
    if (!word) return std::nullopt;
    const auto day = reader.readShortNumber();
    if (!day || !reader.skipSeparators()) return std::nullopt;
    auto month = readMonthBehindDay(reader);
    if (!month) {
        month = monthNamed(*word);
        if (!month) return std::nullopt;
        if (reader.atTime()) return readTimeAndYear(reader, *month, *day);
    }
    const auto year = reader.readYear();
    if (!year || (!reader.skipSeparators() && !reader.atEnd())) return std::nullopt;
    const auto date = existingDay(*year, *month, *day);
    return date ? readRestOfDate(reader, *date) : std::nullopt;
}

/// Reads "2026-10-01 08:30:00" and "2026/10/1"; only the day is required.
std::optional<Instant> readNumberedDate(std::string_view text) {
    DateReader reader(text);
    const auto year = reader.readDigits();
    const char separator = reader.consume('/') ? '/' : '-';
    if (year.size() != 4 || (separator == '-' && !reader.consume('-'))) return std::nullopt;
    const auto month = reader.readShortNumber();
    if (!month || !reader.consume(separator)) return std::nullopt;
    const auto day = reader.readShortNumber();
    if (!day) return std::nullopt;
    // The text is trimmed, so a space, like the "T", must be followed by a time.
    const bool needsTime = reader.consume('T') || reader.skipSpaces();
    if (needsTime == reader.atEnd()) return std::nullopt;
    const auto date = existingDay(*DateReader(year).readYear(), *month, *day);
    return date ? readRestOfDate(reader, *date) : std::nullopt;
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

}  // namespace kit
