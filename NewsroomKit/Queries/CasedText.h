#pragma once

#include <string>
#include <string_view>

namespace kit {

/// Appends the text as PhraseMatcher::normalize gives it, but keeps the letter case of ASCII, for
/// searches that handle both cases. For most news this is a copy with a few characters replaced.
void appendCased(std::string_view text, std::string& out);

/// Whether appendCased would change nothing.
bool isAllASCII(std::string_view text);

}  // namespace kit
