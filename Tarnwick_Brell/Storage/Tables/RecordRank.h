#pragma once

#include <string>
#include <string_view>

namespace app {

/// A rank that sorts, as text, behind `low` and before `high`. A rank is the fraction of a number
/// between 0 and 1 in base 36, without trailing zeros, so that there is always another one between
/// two. An empty text is an open end. `low` must sort before `high`.
std::string rankBetween(std::string_view low, std::string_view high);

}  // namespace app
