#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace kit {

/// The position of a phrase such as "according to" or "via" in a text.
struct CreditPhrase {
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Finds credit phrases as whole words in any letter case, in order; one inside a longer one does
/// not count.
std::vector<CreditPhrase> findCreditPhrases(std::string_view text);

/// Length in bytes of the letter or number at `at`; 0 when there is none.
std::size_t wordCharacterAt(std::string_view text, std::size_t at);

}  // namespace kit
