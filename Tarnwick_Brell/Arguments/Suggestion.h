#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace arguments {

/// The known word that a mistyped one probably means: one that begins with it, or one that differs
/// by a few typing errors. Letter case makes no difference.
std::optional<std::string> suggestion(std::string_view word, const std::vector<std::string>& known);

/// " Did you mean NAME?", or nothing.
std::string didYouMean(std::string_view word, const std::vector<std::string>& known);

}  // namespace arguments
