#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"

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

/// "now", "4 min", "3 h", "2 d", then the day: "2 Nov 2026".
std::string age(kit::Instant then, kit::Instant now);

/// "2026-11-02 08:30 UTC".
std::string dayAndTime(kit::Instant instant);

/// "2026-11-02", by UTC.
std::string dayText(kit::Instant instant);

}  // namespace cli
