#pragma once

#include <chrono>

#include <boost/json.hpp>

#include "PressRoom/Trackers/TrackerFiles.h"

namespace pressroom {

/// Apple's status file at `now`; the data's minutes are relative to the anchor.
boost::json::object statusFile(const WorldStatus& status, std::chrono::sys_seconds anchor,
                               std::chrono::sys_seconds now);

}  // namespace pressroom
