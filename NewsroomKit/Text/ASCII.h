#pragma once

#include <cstddef>
#include <string_view>

namespace kit {

constexpr bool isASCIILetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool isASCIIDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isASCIIAlphanumeric(char c) { return isASCIILetter(c) || isASCIIDigit(c); }

constexpr char lowercaseASCII(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// -1 when `c` is no hexadecimal digit.
constexpr int hexValue(char c) {
    if (isASCIIDigit(c)) return c - '0';
    const char lower = lowercaseASCII(c);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// True when `text` equals `lower` in any letter case; `lower` is in lower case already.
constexpr bool equalsLowercase(std::string_view text, std::string_view lower) {
    if (text.size() != lower.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (lowercaseASCII(text[i]) != lower[i]) return false;
    }
    return true;
}

/// Whether `lower` stands at byte `at` of the text, in any letter case.
constexpr bool standsAt(std::string_view text, std::size_t at, std::string_view lower) {
    return text.size() - at >= lower.size() &&
           equalsLowercase(text.substr(at, lower.size()), lower);
}

}  // namespace kit
