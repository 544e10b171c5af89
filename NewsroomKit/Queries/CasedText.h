#pragma once

#include <string>
#include <string_view>

namespace kit {

/// Appends the text as PhraseMatcher::normalize gives it, but for the letter case of what was
/// ASCII, for searches that know both cases. In news that is a copy with a few characters
/// replaced.
void appendCased(std::string_view text, std::string& out);

/// Whether appendCased would change nothing.
bool isAllASCII(std::string_view text);

}  // namespace kit
