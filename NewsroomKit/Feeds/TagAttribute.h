#pragma once

#include <string_view>

namespace kit {

/// The value of an attribute inside an HTML tag, references not decoded; empty when there is
/// none. `tag` is what stands between the tag's angle brackets or the part of it behind its name;
/// `name` is in lower case.
std::string_view tagAttribute(std::string_view tag, std::string_view name);

}  // namespace kit
