#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Trackers/Tracker.h"

namespace app {

/// A computer that the desk asks without being told to each time.
struct ContactedHost {
    std::size_t sources = 0;          ///< feeds fetched from it
    std::set<Tracker> trackers{};     ///< files fetched from it
    std::chrono::minutes interval{};  ///< the shortest between two requests
    /// The last attempt at a feed, or answer to a tracker.
    std::optional<kit::Instant> lastAsked{};
    std::int64_t fetches = 0;  ///< of feeds
};

/// How often each source was fetched, by its id.
using FetchCounts = std::map<std::string, std::int64_t>;

/// By host, of the sources that are on and all trackers.
std::map<std::string, ContactedHost> contactedHosts(const DeskStores& stores,
                                                    const FetchCounts& fetches);

}  // namespace app
