#pragma once

#include <string_view>

namespace kit {

/// The value of an attribute of an HTML tag, references not decoded; empty when there is none.
/// `tag` is the text between the tag's angle brackets, with or without its name; `name` is in lower
/// case.
std::string_view tagAttribute(std::string_view tag, std::string_view name);

}  // namespace kit
