#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace arguments {

/// Which of the known words a mistyped one probably stands for: one that begins with it, or one
/// that a few typing errors lead to. Capital letters make no difference.
std::optional<std::string> suggestion(std::string_view word, const std::vector<std::string>& known);

/// " Did you mean NAME?", or nothing.
std::string didYouMean(std::string_view word, const std::vector<std::string>& known);

}  // namespace arguments
