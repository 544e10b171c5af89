#pragma once

#include <chrono>

#include <boost/json.hpp>

#include "PressRoom/Trackers/TrackerFiles.h"

namespace pressroom {

/// Apple's status file as it stands at `now`; the anchor gives the data's minutes their times.
boost::json::object statusFile(const WorldStatus& status, std::chrono::sys_seconds anchor,
                               std::chrono::sys_seconds now);

}  // namespace pressroom
