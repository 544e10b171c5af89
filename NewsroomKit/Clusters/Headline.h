#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kit {

/// The features of a headline that decide whether another one reports the same news.
struct Headline {
    struct Word {
        std::uint64_t key = 0;
        double usualShare = 0;  ///< of all headlines that hold it, as known beforehand
        bool operator==(const Word&) const = default;
    };
    /// A number and what it counts or names: the word before it ("iphone" 18), the word after
    /// it (7 "inch"), a currency, the calendar.
    struct Figure {
        std::uint64_t subject = 0;
        std::uint64_t value = 0;
        auto operator<=>(const Figure&) const = default;
    };

    std::vector<Word> words{};             ///< distinct, by key
    std::vector<Figure> figures{};         ///< distinct, sorted
    std::vector<std::uint64_t> numbers{};  ///< neither years nor prices; distinct, sorted
    std::vector<std::uint64_t> systems{};  ///< operating systems and tools named; likewise
    std::vector<std::uint64_t> devices{};  ///< likewise
    std::vector<std::uint64_t> stages{};   ///< beta, release candidate; likewise

    bool operator==(const Headline&) const = default;
};

/// Reads only the first kLongestHeadline bytes; no real headline is longer.
Headline readHeadline(std::string_view title);
inline constexpr std::size_t kLongestHeadline = 600;

/// True when the headlines cannot report the same news, however similar they are: they give
/// different numbers for the same thing ("beta 2", "beta 3"), share none of their numbers, or name
/// different systems, devices or release stages.
bool areIncompatible(const Headline& left, const Headline& right);

}  // namespace kit
