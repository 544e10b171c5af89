#pragma once

#include <compare>
#include <string_view>

namespace kit {

/// As texts, but runs of digits as numbers: "18.9" comes before "18.10".
std::weak_ordering compareVersions(std::string_view left, std::string_view right);

}  // namespace kit
