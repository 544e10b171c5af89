#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "NewsroomKit/Clusters/HeadlineSimilarity.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// Groups indices of `entries`, which must be in order of time. Each group is ascending; groups of
/// one are included. Starts with the most similar pairs: two groups are joined when they are close
/// in time, no two members are incompatible, and their members are similar on average. The average
/// keeps a chain of half-similar headlines from joining its two ends.
std::vector<std::vector<std::size_t>> grownGroups(std::span<const ClusterEntry* const> entries,
                                                  Instant::duration window);

}  // namespace kit
