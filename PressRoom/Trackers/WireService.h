#pragma once

#include <chrono>
#include <optional>
#include <string_view>

#include <boost/json.hpp>

#include "PressRoom/Trackers/TrackerFiles.h"

/// Answers of the vendor's service at `now`; the data's minutes are relative to the anchor.
namespace pressroom {

boost::json::object releases(const WorldReleases& releases, std::chrono::sys_seconds anchor,
                             std::chrono::sys_seconds now);

boost::json::object events(const WorldCalendar& calendar, std::chrono::sys_seconds anchor,
                           std::chrono::sys_seconds now);

/// `range` is one of "1d", "1w", "1m", "1y"; nothing otherwise.
std::optional<boost::json::object> quote(const WorldQuote& quote, std::string_view range,
                                         std::chrono::sys_seconds anchor,
                                         std::chrono::sys_seconds now);

/// The quotes that have a group.
boost::json::object board(const WorldBoard& board, std::chrono::sys_seconds anchor,
                          std::chrono::sys_seconds now);

}  // namespace pressroom
