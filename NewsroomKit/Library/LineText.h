#pragma once

#include <string>
#include <string_view>

namespace kit {

/// The text for showing: valid UTF-8, without control characters other than tabs and line breaks
/// (CR LF and CR become LF), and without the characters that turn the direction of what follows.
std::string withoutControls(std::string_view text);

/// The same on one line: white space and line breaks are single spaces, none at either end.
std::string singleLine(std::string_view text);

/// A link with everything that an address may not hold, and what ends an address in running text,
/// percent-encoded: white space, control characters, quotes, brackets, braces, backslashes.
std::string safeLink(std::string_view link);

/// An address of the web with a host.
bool isWebLink(std::string_view link);

/// The text as one line that Markdown shows as it stands.
std::string escapedMarkdown(std::string_view text);

}  // namespace kit
