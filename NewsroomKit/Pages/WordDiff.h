#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// Words that were replaced, inserted or deleted: ranges of the two lists of words, of which one
/// may be empty.
struct WordChange {
    std::size_t beforeBegin;
    std::size_t beforeEnd;
    std::size_t afterBegin;
    std::size_t afterEnd;
};

/// How the words of a text changed. Noise (see PageNoise.h) counts as one word that never changes.
struct WordDiff {
    std::vector<std::string_view> before;  ///< the words as they stand in the texts
    std::vector<std::string_view> after;
    std::vector<WordChange> changes;  ///< those with up to two short words between are joined
    std::size_t words = 0;            ///< inserted and deleted ones
    bool isRewritten = false;         ///< hardly a word is left: better shown whole
};

/// The texts must outlive the answer.
WordDiff compareWords(std::string_view before, std::string_view after);

/// Words parted by white space.
std::vector<std::string_view> wordsOf(std::string_view text);

}  // namespace kit
