#pragma once

#include <optional>
#include <string_view>

namespace kit {

/// A common word of Apple news, with its usual frequency.
struct CommonWord {
    /// Names with the same role exclude each other: a headline about one system is not about
    /// another, whatever else they share.
    enum class Role { plain, system, device, stage };

    std::string_view word;  ///< folded
    double share;           ///< of all headlines that hold it
    Role role = Role::plain;
    /// Words with the same sense count as this one ("unveils" as "release").
    std::string_view sense{};
};

/// True for articles, prepositions and the like, which are no evidence.
bool isFunctionWord(std::string_view folded);

/// The row of a word in any of its regular forms; null for words that are not common.
const CommonWord* commonWord(std::string_view stem);

/// The word without its regular endings ("releases", "released" and "releasing" are
/// "releas"): a key for comparing, not a word to show. Only words of ASCII letters change.
std::string_view wordStem(std::string_view folded);

/// "two" to "twelve" and "first" to "tenth" as numbers.
std::optional<unsigned> spelledNumber(std::string_view folded);
std::optional<unsigned> spelledOrdinal(std::string_view folded);

}  // namespace kit
