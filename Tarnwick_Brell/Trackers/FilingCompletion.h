#pragma once

#include <cstdint>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/Filings/FilingsAPI.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace app {

/// Fetches what a company's feed refers to: its list when that is due, the forms of insiders, the
/// press releases among the exhibits of what is new. What can't be had now is left for the next
/// time.
boost::asio::awaitable<ServerRefusal> completeFilings(LocalStore& store, kit::FilingsAPI api,
                                                      std::int64_t company, kit::Clock clock);

}  // namespace app
