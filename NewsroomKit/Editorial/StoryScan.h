#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/PhraseTables.h"

namespace kit {

/// How many user-perceived characters of a summary the sourcing rules read.
inline constexpr std::size_t openingCharacters = 280;

/// The phrases found in one story. Headline and excerpt are normalised once and scanned in one
/// pass, and both rule sets decide from the result.
class StoryScan {
public:
    StoryScan(std::string_view title, std::string_view summary);

    /// Phrases of the headline alone.
    const PhraseHits& title() const { return title_; }
    /// Phrases of the summary's opening alone.
    const PhraseHits& opening() const { return opening_; }
    /// The earliest kind exclusion in "title summary"; it may span both parts.
    const std::optional<RuleHit>& exclusion() const { return exclusion_; }

private:
    PhraseHits title_;
    PhraseHits opening_;
    std::optional<RuleHit> exclusion_;
};

}  // namespace kit
