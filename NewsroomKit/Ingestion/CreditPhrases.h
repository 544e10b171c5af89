#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace kit {

/// What a phrase says of the words around it.
enum class CreditRole {
    origin,     ///< "first reported by": the news comes from whatever follows
    via,        ///< "via": so does this, unless it is the preposition
    source,     ///< "according to": what follows may as well be a person or a company
    writing,    ///< "writing for": a person stands before it, an outlet follows
    report,     ///< "reports": the outlet stands before it, or behind it in inverted speech
    statement,  ///< "says": the outlet may stand before it
    post,       ///< "tweeted": a link to the post stands near
};

/// The position of a phrase such as "according to" or "via" in a text.
struct CreditPhrase {
    std::size_t begin = 0;
    std::size_t end = 0;
    CreditRole role = CreditRole::origin;
};

/// Finds credit phrases as whole words in any letter case, in order; one inside a longer one does
/// not count.
std::vector<CreditPhrase> findCreditPhrases(std::string_view text);

/// Length in bytes of the letter or number at `at`; 0 when there is none.
std::size_t wordCharacterAt(std::string_view text, std::size_t at);

}  // namespace kit
