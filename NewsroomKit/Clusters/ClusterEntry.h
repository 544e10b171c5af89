#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "NewsroomKit/Clusters/Headline.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// The part of a story that clustering needs.
struct ClusterEntry {
    std::string storyID{};
    std::string sourceID{};
    Instant publishedAt{};
    Headline headline{};
    std::vector<std::uint64_t> articles{};  ///< hashed links of what the story is or leads to
    std::vector<std::uint64_t> credited{};  ///< hashed links of the articles it credits
};

}  // namespace kit
