#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kit {

/// The text itself when it has at most `limit` user-perceived characters. Otherwise its
/// beginning up to the last sentence or word that fits, with "…" unless a sentence ends
/// there; the "…" counts. A word longer than the limit is cut between characters.
std::string cutAtBoundary(std::string_view text, std::size_t limit);

/// The same, but always closed with "…".
std::string cutAtWord(std::string_view text, std::size_t limit);

}  // namespace kit
