#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace kit {

/// Where a phrase such as "according to" or "via" stands in a text.
struct CreditPhrase {
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// The phrases that credit somebody, as whole words in any letter case, in order; one inside
/// a longer one does not count.
std::vector<CreditPhrase> findCreditPhrases(std::string_view text);

/// Bytes of the letter or number at `at`; 0 when none stands there.
std::size_t wordCharacterAt(std::string_view text, std::size_t at);

}  // namespace kit
