#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace pressroom {

/// Escapes for text and for attributes in double quotes, in XML and HTML.
std::string escaped(std::string_view text);

/// A CDATA section, or several when the text contains "]]>".
std::string cdata(std::string_view text);

/// `<name>escaped text</name>`
std::string element(std::string_view name, std::string_view text);

/// "Sat, 21 Nov 2026 08:05:00 +0000"
std::string mailDate(std::chrono::sys_seconds instant);

/// "Sat, 21 Nov 2026 00:05:00 PST"
std::string pacificDate(std::chrono::sys_seconds instant);

/// "21 Nov 2026 08:05 +0000"
std::string shortMailDate(std::chrono::sys_seconds instant);

/// "2026-11-21T08:05:00" and the given zone
std::string isoDate(std::chrono::sys_seconds instant, std::string_view zone = "+00:00");

}  // namespace pressroom
