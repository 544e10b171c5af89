#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/RuleHit.h"

namespace kit {

/// How many user-perceived characters of a summary the sourcing rules read.
inline constexpr std::size_t openingCharacters = 280;

/// What the phrase tables find in one story: headline and excerpt are normalised once and
/// read in one pass, and both rule sets decide from the result.
class StoryScan {
public:
    StoryScan(std::string_view title, std::string_view summary);

    /// Phrases of the headline by itself.
    const PhraseHits& title() const { return title_; }
    /// Phrases of the summary's opening by itself.
    const PhraseHits& opening() const { return opening_; }
    /// The earliest kind exclusion in "title summary"; it may span the seam.
    const std::optional<RuleHit>& exclusion() const { return exclusion_; }

private:
    PhraseHits title_;
    PhraseHits opening_;
    std::optional<RuleHit> exclusion_;
};

}  // namespace kit
