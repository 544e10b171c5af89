#include "NewsroomKit/Clusters/HeadlineNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <utility>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

constexpr std::size_t kLongestSuffix = 10;  // "megapixels"

std::size_t leadingCount(std::string_view text, bool (*fits)(char)) {
    const auto end = std::find_if_not(text.begin(), text.end(), fits);
    return static_cast<std::size_t>(end - text.begin());
}

bool isDigitOrPoint(char c) { return isASCIIDigit(c) || c == '.'; }

template <std::size_t Count>
std::optional<unsigned> placeIn(const std::array<std::string_view, Count>& names, unsigned first,
                                std::string_view word) {
    const auto found = std::find(names.begin(), names.end(), word);
    if (found == names.end()) return std::nullopt;
    return first + static_cast<unsigned>(found - names.begin());
}

template <class Value, std::size_t Count>
Value valueIn(const std::array<std::pair<std::string_view, Value>, Count>& rows,
              std::string_view word) {
    for (const auto& [name, value] : rows) {
        if (name == word) return value;
    }
    return {};
}

}  // namespace

std::optional<HeadlineNumber> headlineNumber(std::string_view token) {
    const std::size_t letters = leadingCount(token, isASCIILetter);
    const auto rest = token.substr(letters);
    const std::size_t digits = leadingCount(rest, isDigitOrPoint);
    const auto suffix = rest.substr(digits);
    const bool shaped = letters <= 2 && digits > 0 && suffix.size() <= kLongestSuffix &&
                        std::all_of(suffix.begin(), suffix.end(), isASCIILetter);
    if (!shaped) return std::nullopt;
    const auto plain = rest.substr(0, digits);
    const bool isOrdinal = suffix == "st" || suffix == "nd" || suffix == "rd" || suffix == "th";
    HeadlineNumber number{.prefix = token.substr(0, letters),
                          .text = isOrdinal ? plain : rest,
                          .suffix = isOrdinal ? std::string_view() : suffix};
    std::from_chars(plain.data(), plain.data() + plain.size(), number.value);
    number.isVersion = plain.find('.') != std::string_view::npos;
    number.isYear =
        token.size() == 4 && digits == 4 && (token.starts_with("19") || token.starts_with("20"));
    return number;
}

bool isBuildNumber(std::string_view token) {
    const std::size_t digits = leadingCount(token, isASCIIDigit);
    if (digits == 0 || digits + 2 > token.size() || !isASCIILetter(token[digits])) return false;
    const auto rest = token.substr(digits + 1);
    const std::size_t more = leadingCount(rest, isASCIIDigit);
    return more >= 2 && rest.size() - more <= 1;
}

std::optional<unsigned> spelledNumber(std::string_view folded) {
    static constexpr std::array<std::string_view, 11> names{
        "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten", "eleven", "twelve"};
    return placeIn(names, 2, folded);
}

std::optional<unsigned> spelledOrdinal(std::string_view folded) {
    static constexpr std::array<std::string_view, 12> names{
        "first",   "second", "third", "fourth", "fifth",    "sixth",
        "seventh", "eighth", "ninth", "tenth",  "eleventh", "twelfth"};
    return placeIn(names, 1, folded);
}

double magnitudeOf(std::string_view word) {
    static constexpr std::array<std::pair<std::string_view, double>, 18> rows{{
        {"k", 1e3},
        {"thousand", 1e3},
        {"lakh", 1e5},
        {"m", 1e6},
        {"mn", 1e6},
        {"mln", 1e6},
        {"mio", 1e6},
        {"million", 1e6},
        {"crore", 1e7},
        {"b", 1e9},
        {"bn", 1e9},
        {"bln", 1e9},
        {"billion", 1e9},
        {"t", 1e12},
        {"tn", 1e12},
        {"trn", 1e12},
        {"trillion", 1e12},
        {"millions", 1e6},
    }};
    return valueIn(rows, word);
}

std::string_view unitOf(std::string_view word) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 27> rows{{
        {"inch", "inch"},    {"inches", "inch"},  {"in", "inch"},       {"mah", "mah"},
        {"mp", "mp"},        {"megapixel", "mp"}, {"megapixels", "mp"}, {"gb", "gb"},
        {"gigabytes", "gb"}, {"tb", "tb"},        {"terabytes", "tb"},  {"nm", "nm"},
        {"nanometer", "nm"}, {"hz", "hz"},        {"ghz", "ghz"},       {"mm", "mm"},
        {"w", "w"},          {"watt", "w"},       {"watts", "w"},       {"hours", "hour"},
        {"hour", "hour"},    {"hr", "hour"},      {"days", "day"},      {"minutes", "minute"},
        {"nits", "nit"},     {"core", "core"},    {"cores", "core"},
    }};
    return valueIn(rows, word);
}

char32_t currencyNamed(std::string_view word) {
    static constexpr std::array<std::pair<std::string_view, char32_t>, 12> rows{{
        {"dollars", U'$'},
        {"dollar", U'$'},
        {"usd", U'$'},
        {"euros", U'€'},
        {"euro", U'€'},
        {"eur", U'€'},
        {"pounds", U'£'},
        {"gbp", U'£'},
        {"yen", U'¥'},
        {"yuan", U'Y'},
        {"rupees", U'R'},
        {"rs", U'R'},
    }};
    return valueIn(rows, word);
}

bool isMonth(std::string_view word) {
    static constexpr std::array<std::string_view, 20> names{
        "january", "february",  "march",   "april",    "may",      "june", "july",
        "august",  "september", "october", "november", "december", "jan",  "feb",
        "aug",     "sept",      "sep",     "oct",      "nov",      "dec"};
    return std::find(names.begin(), names.end(), word) != names.end();
}

bool isNumberedNoun(std::string_view word) {
    static constexpr std::array<std::string_view, 13> names{
        "season", "series", "episode", "generation", "gen",   "part",   "chapter",
        "volume", "phase",  "round",   "week",       "issue", "quarter"};
    return std::find(names.begin(), names.end(), word) != names.end();
}

}  // namespace kit
