#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// What to follow of a story's news, by its headline: product names, and the names of people,
/// companies and places, in the headline's order. Capital letters say nothing in a headline that
/// capitalises nearly every word; from such a one only names with digits or with capitals inside
/// are taken, and known products. Empty when the headline has no name.
std::vector<std::string> proposedTerms(std::string_view title);

inline constexpr std::size_t kMostProposedTerms = 8;

}  // namespace kit
