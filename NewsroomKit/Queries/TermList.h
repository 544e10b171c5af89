#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// The words and phrases of a list that a person typed with commas between them, without the
/// white space around each. Empty ones are dropped.
std::vector<std::string> separatedTerms(std::string_view list);

}  // namespace kit
