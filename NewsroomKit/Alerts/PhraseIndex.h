#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "NewsroomKit/Editorial/PhraseMatcher.h"

namespace kit {

/// Finds which of many phrases a text mentions, with the results of PhraseMatcher. A phrase of
/// words is only looked for where the text has its first word.
class PhraseIndex {
public:
    /// The phrase's number; that of an equal one if there is one.
    std::size_t add(PhraseMatcher phrase);

    const PhraseMatcher& phrase(std::size_t number) const { return phrases_[number]; }
    std::size_t size() const { return phrases_.size(); }

    /// Marks what the text mentions; `mentioned` has the size of the index.
    void find(std::string_view normalizedText, std::vector<bool>& mentioned) const;

private:
    /// Looks up by a view without a copy.
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };

    std::vector<PhraseMatcher> phrases_;
    std::unordered_map<std::string, std::size_t> numbers_;  ///< by phrase
    std::unordered_map<std::string, std::vector<std::size_t>, Hash, std::equal_to<>> byFirstWord_;
    std::vector<std::size_t> others_;  ///< that begin with no word of ASCII
};

}  // namespace kit
