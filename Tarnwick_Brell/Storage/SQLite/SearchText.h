#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace app {

/// What a person types to search the wire, as expressions for SQLite's full-text index.
///
/// Words stand for themselves and all of them must occur, as whole words, whatever their
/// letter case and accents. "An exact phrase" stands in quotes, straight or curly; `word*` is
/// a beginning; `-word` and `-"a phrase"` must not occur; `author:name` looks at authors
/// only. Nothing else means anything: AND, NEAR(, a lone quote are text like all other text,
/// so that no input is an error. What has neither letter nor digit asks for nothing.
struct SearchText {
    /// Of a longer text only the words that fit count: a search line, not a document.
    static constexpr std::size_t kMostBytes = 1024;

    /// A word that is still typed counts as a beginning from so many characters on: half of
    /// the library begins with one letter or another, and looking that up takes its time.
    static constexpr std::size_t kShortestBeginning = 2;

    /// Whether the last word is there in full, or may be the beginning of a longer one.
    enum class LastWord { complete, stillTyped };

    /// Whether the searched index has authors; `author:` is text where it has none.
    enum class Authors { indexed, none };

    std::string wanted{};    ///< an expression that stories must match; empty: all do
    std::string unwanted{};  ///< an expression that stories must not match; empty: none does

    static SearchText parse(std::string_view typed, LastWord lastWord = LastWord::complete,
                            Authors authors = Authors::indexed);

    /// What has one of these phrases in it, word for word.
    static SearchText anyOf(const std::vector<std::string>& phrases);

    bool isEmpty() const { return wanted.empty() && unwanted.empty(); }

    bool operator==(const SearchText&) const = default;
};

}  // namespace app
