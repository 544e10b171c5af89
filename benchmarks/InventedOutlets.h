#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "NewsroomKit/Records/Instant.h"

namespace outlets {

kit::Instant now();

std::string host(std::size_t outlet);

/// An RSS feed of the last hours; each round has different stories.
std::string feed(std::size_t outlet, std::size_t round, std::size_t stories);

/// Makes these outlets the only enabled sources, as if fetched before, so that their stories count
/// as news and not as a first fetch.
void makeOnlySources(const std::filesystem::path& library, std::size_t count);

}  // namespace outlets
