#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text from feeds, made fit for a terminal's lines.
namespace cli {

/// Removes control characters and direction overrides, which could falsify the display; white space
/// becomes single spaces.
std::string printable(std::string_view text);

/// Cuts the text at `columns` with "…", or pads it with spaces. Wide characters count as two
/// columns.
std::string cutTo(std::string_view text, std::size_t columns);
std::string padTo(std::string_view text, std::size_t columns);
std::size_t columnsOf(std::string_view text);

/// Wraps `text` at `width` columns; each line begins with `indent`.
std::string wrapped(std::string_view text, std::size_t width, std::string_view indent);

}  // namespace cli
