#pragma once

#include <chrono>
#include <optional>
#include <string_view>

#include <boost/json.hpp>

#include "PressRoom/Trackers/TrackerFiles.h"

/// What the maker's service answers at `now`; the anchor gives the data's minutes their times.
namespace pressroom {

boost::json::object releases(const WorldReleases& releases, std::chrono::sys_seconds anchor,
                             std::chrono::sys_seconds now);

boost::json::object events(const WorldCalendar& calendar, std::chrono::sys_seconds anchor,
                           std::chrono::sys_seconds now);

/// `range` is one of "1d", "1w", "1m", "1y"; nothing when it is none.
std::optional<boost::json::object> quote(const WorldQuote& quote, std::string_view range,
                                         std::chrono::sys_seconds anchor,
                                         std::chrono::sys_seconds now);

/// The quotes that have a group.
boost::json::object board(const WorldBoard& board, std::chrono::sys_seconds anchor,
                          std::chrono::sys_seconds now);

}  // namespace pressroom
