#pragma once

#include <optional>
#include <string_view>

namespace kit {

/// A token that holds a number: "27.1", "m6", "18e", "20th", "870mn".
struct HeadlineNumber {
    std::string_view prefix{};  ///< "m" of "m6"
    std::string_view text{};    ///< "6", and "18e" with its letter
    std::string_view suffix{};  ///< "mn" of "870mn", "e" of "18e"
    double value = 0;
    bool isVersion = false;  ///< has a point
    bool isYear = false;
};

/// Nothing for a word, and for a build like "24C5052a".
std::optional<HeadlineNumber> headlineNumber(std::string_view token);

/// "24C5052a": adds nothing to its version, and only some outlets name it.
bool isBuildNumber(std::string_view token);

/// "two" to "twelve" and "first" to "twelfth" as numbers.
std::optional<unsigned> spelledNumber(std::string_view folded);
std::optional<unsigned> spelledOrdinal(std::string_view folded);

/// 1e6 for "million", "mln", "mn" and "m", and so on; 0 for other words.
double magnitudeOf(std::string_view word);

/// The unit that the word is ("inches" and "inch" are "inch"); empty for other words.
std::string_view unitOf(std::string_view word);

/// "$" for "dollars"; 0 for other words.
char32_t currencyNamed(std::string_view word);

bool isMonth(std::string_view word);

/// A noun whose instances are numbered, as in "season 3".
bool isNumberedNoun(std::string_view word);

}  // namespace kit
