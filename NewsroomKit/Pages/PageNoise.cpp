#include "NewsroomKit/Pages/PageNoise.h"

#include <algorithm>
#include <array>
#include <optional>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {
namespace {

constexpr std::size_t leastHexDigits = 16;

bool isWordCharacter(char c) { return isASCIIAlphanumeric(c) || c == '_' || c == '-'; }

bool beginsWord(std::string_view text, std::size_t at) {
    return at == 0 || !isASCIIAlphanumeric(text[at - 1]);
}

template <class Accepts>
std::size_t endOfRun(std::string_view text, std::size_t at, Accepts accepts) {
    while (at < text.size() && accepts(text[at])) ++at;
    return at;
}

/// "2026-11-22T14:05:09Z", with a fraction and a zone or without.
std::optional<std::size_t> endOfTime(std::string_view text, std::size_t at) {
    constexpr std::string_view shape = "0000-00-00T00:00:00";
    if (text.size() - at < shape.size()) return std::nullopt;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const char c = text[at + i];
        const bool fits = shape[i] == '0'   ? isASCIIDigit(c)
                          : shape[i] == 'T' ? c == 'T' || c == ' '
                                            : c == shape[i];
        if (!fits) return std::nullopt;
    }
    const auto accepts = [](char c) {
        return isASCIIDigit(c) || c == '.' || c == 'Z' || c == '+' || c == ':';
    };
    return endOfRun(text, at + shape.size(), accepts);
}

/// "3 hours ago", "an hour ago", "1,204 views".
std::optional<std::size_t> endOfCount(std::string_view text, std::size_t at) {
    constexpr std::array<std::string_view, 8> units{"second", "sec", "minute", "min",
                                                    "hour",   "hr",  "day",    "week"};
    std::size_t next = at;
    if (isASCIIDigit(text[at])) {
        next = endOfRun(text, at, [](char c) { return isASCIIDigit(c) || c == ',' || c == '.'; });
        if (next < text.size() && (text[next] == 'K' || text[next] == 'M')) ++next;
    } else {
        next = endOfRun(text, at, isASCIILetter);
        const auto word = text.substr(at, next - at);
        if (!equalsLowercase(word, "a") && !equalsLowercase(word, "an")) return std::nullopt;
    }
    if (next >= text.size() || text[next] != ' ') return std::nullopt;
    const auto unitBegin = next + 1;
    next = endOfRun(text, unitBegin, isASCIILetter);
    auto unit = text.substr(unitBegin, next - unitBegin);
    if (isASCIIDigit(text[at]) &&
        (equalsLowercase(unit, "views") || equalsLowercase(unit, "view"))) {
        return next;
    }
    if (unit.size() > 1 && lowercaseASCII(unit.back()) == 's') unit.remove_suffix(1);
    const bool isUnit = std::any_of(units.begin(), units.end(),
                                    [&](auto known) { return equalsLowercase(unit, known); });
    constexpr std::string_view ago = " ago";
    if (!isUnit || text.size() - next < ago.size() || !standsAt(text, next, ago)) {
        return std::nullopt;
    }
    return next + ago.size();
}

/// The years behind "©" or "(c)": "© 2001–2026".
std::optional<std::size_t> endOfCopyrightYears(std::string_view text, std::size_t at) {
    constexpr std::string_view sign = "©";
    constexpr std::string_view letter = "(c)";
    std::size_t next = at;
    if (text.substr(at).starts_with(sign)) {
        next += sign.size();
    } else if (text.size() - at >= letter.size() && standsAt(text, at, letter)) {
        next += letter.size();
    } else {
        return std::nullopt;
    }
    std::size_t digits = 0;
    const auto years = text.substr(next, std::size_t{16});
    std::size_t end = 0;
    for (std::size_t i = 0; i < years.size(); ++i) {
        if (isASCIIDigit(years[i])) {
            ++digits;
            end = i + 1;
        } else if (isASCIILetter(years[i]) || years[i] == '.' || years[i] == ',') {
            break;
        }
    }
    if (digits < 4) return std::nullopt;
    return next + end;
}

std::optional<std::size_t> endOfToken(std::string_view text, std::size_t at) {
    for (const std::string_view prefix : {std::string_view("?v="), std::string_view("&v="),
                                          std::string_view("nonce-"), std::string_view("nonce=")}) {
        if (text.size() - at > prefix.size() && standsAt(text, at, prefix)) {
            return endOfRun(text, at + prefix.size(),
                            [](char c) { return isWordCharacter(c) || c == '.' || c == '='; });
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> endOfHexDigits(std::string_view text, std::size_t at) {
    const auto end = endOfRun(text, at, [](char c) { return hexValue(c) >= 0 || c == '-'; });
    const auto run = text.substr(at, end - at);
    const auto digits = std::count_if(run.begin(), run.end(), [](char c) { return c != '-'; });
    const bool isIdentifier = digits >= static_cast<std::ptrdiff_t>(leastHexDigits) &&
                              (end == text.size() || !isASCIIAlphanumeric(text[end])) &&
                              std::any_of(run.begin(), run.end(), isASCIIDigit) &&
                              std::count(run.begin(), run.end(), '-') <= 4;
    if (!isIdentifier) return std::nullopt;
    return end;
}

std::optional<std::size_t> endOfNoise(std::string_view text, std::size_t at) {
    const char c = text[at];
    if (c == '?' || c == '&' || c == 'n') {
        if (const auto end = endOfToken(text, at)) return end;
    }
    if (c == '\xC2' || c == '(') return endOfCopyrightYears(text, at);
    if (!beginsWord(text, at)) return std::nullopt;
    if (isASCIIDigit(c)) {
        if (const auto end = endOfTime(text, at)) return end;
    }
    if (isASCIIDigit(c) || c == 'a' || c == 'A') {
        if (const auto end = endOfCount(text, at)) return end;
    }
    if (hexValue(c) >= 0) return endOfHexDigits(text, at);
    return std::nullopt;
}

void appendStraightened(std::string_view text, std::string& out) {
    for (std::size_t at = 0; at < text.size();) {
        // U+2018 to U+201F are quotation marks, single ones first.
        if (text.size() - at >= 3 && text[at] == '\xE2' && text[at + 1] == '\x80' &&
            static_cast<unsigned char>(text[at + 2]) >= 0x98 &&
            static_cast<unsigned char>(text[at + 2]) <= 0x9F) {
            out += static_cast<unsigned char>(text[at + 2]) <= 0x9B ? '\'' : '"';
            at += 3;
        } else {
            out += text[at++];
        }
    }
}

}  // namespace

std::vector<PageNoise> pageNoise(std::string_view text) {
    std::vector<PageNoise> found;
    for (std::size_t at = 0; at < text.size();) {
        if (const auto end = endOfNoise(text, at)) {
            found.push_back({at, *end});
            at = *end;
        } else {
            ++at;
        }
    }
    return found;
}

std::string comparedText(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    std::size_t at = 0;
    for (const auto& noise : pageNoise(text)) {
        appendStraightened(text.substr(at, noise.begin - at), result);
        result += '#';
        at = noise.end;
    }
    appendStraightened(text.substr(at), result);
    return result;
}

}  // namespace kit
