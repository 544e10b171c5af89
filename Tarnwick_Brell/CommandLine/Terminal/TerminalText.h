#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text from feeds, made fit for a terminal's lines.
namespace cli {

/// Without control characters and direction overrides, which could rewrite what the
/// terminal shows; white space becomes single spaces.
std::string printable(std::string_view text);

/// Cut at `columns` with "…", or filled up with spaces. Wide characters count as two columns.
std::string cutTo(std::string_view text, std::size_t columns);
std::string padTo(std::string_view text, std::size_t columns);
std::size_t columnsOf(std::string_view text);

/// `text` in lines of at most `width` columns, each after `indent`.
std::string wrapped(std::string_view text, std::size_t width, std::string_view indent);

}  // namespace cli
