#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "PressRoom/Filings/FilingsWorld.h"

/// The SEC's lists of filings at a moment of the world's time.
namespace pressroom {

/// A filing with its filer.
using ListedFiling = std::pair<const WorldFiler*, const WorldFiling*>;

/// Those that are shown by then, the last accepted first.
std::vector<ListedFiling> shownFilings(const WorldFiler& filer, std::chrono::sys_seconds anchor,
                                       std::chrono::sys_seconds now);

/// The Atom feed of a filer. `further` entries with numbers of their own follow, for a feed that is
/// much longer than it was asked to be.
std::string filerFeed(const WorldFiler& filer, std::chrono::sys_seconds anchor,
                      std::chrono::sys_seconds now, std::size_t further = 0);

/// The submissions of a filer as columns. The list is made some time after the feed.
std::string submissionsList(const WorldFiler& filer, std::chrono::sys_seconds anchor,
                            std::chrono::sys_seconds now);

/// The newest filings of all filers; each appears once for each of its parties.
std::string latestFeed(const WorldFilings& world, std::chrono::sys_seconds anchor,
                       std::chrono::sys_seconds now);

}  // namespace pressroom
