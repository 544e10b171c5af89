#pragma once

#include <string>
#include <string_view>
#include <variant>

namespace kit {

/// One search phrase; every rule, query and alert uses this test. A phrase of words matches only
/// whole words ("mac" neither in "macbook" nor in "imac", but in "mac-only"); a phrase with other
/// punctuation matches as a plain substring.
struct PhraseMatcher {
    struct Plain {
        std::string text;
        bool operator==(const Plain&) const = default;
    };
    /// Matches where no letter and no number touches either end.
    struct Bounded {
        std::string text;
        bool operator==(const Bounded&) const = default;
    };
    using Storage = std::variant<Plain, Bounded>;

    Storage storage;
    std::string phrase;  ///< normalised, spaces and tabs at both ends trimmed

    explicit PhraseMatcher(std::string_view phrase);

    /// The form in which texts are compared: folded (NewsroomKit/Text/Folding.h), curly
    /// quotes straight, dashes and no-break spaces ordinary spaces. Runs of spaces and
    /// other punctuation stay.
    static std::string normalize(std::string_view text);
    static void appendNormalized(std::string_view text, std::string& out);

    /// Whether the phrase occurs in a text that is normalised already. The empty phrase
    /// occurs nowhere.
    bool matches(std::string_view normalizedText) const {
        return find(normalizedText) != std::string_view::npos;
    }
    /// The byte from `from` on at which the phrase occurs next; npos when it does not.
    std::size_t find(std::string_view normalizedText, std::size_t from = 0) const;

    bool isBounded() const { return std::holds_alternative<Bounded>(storage); }

    bool operator==(const PhraseMatcher&) const = default;
};

/// No letter and no number touches the bytes from `start` to `end` of the text.
bool standsAsWords(std::string_view text, std::size_t start, std::size_t end);

}  // namespace kit
