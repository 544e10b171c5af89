#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "NewsroomKit/Clusters/ClusterEntry.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// Groups of places in `entries` (which must be in order of time), each group in ascending
/// order, groups of one included. Grows groups from the most alike pairs on: two groups become
/// one when they are near in time, no member contradicts another, and their members are alike
/// on average, so that a chain of half-alike headlines does not tie two ends together.
std::vector<std::vector<std::size_t>> grownGroups(std::span<const ClusterEntry* const> entries,
                                                  Instant::duration window);

}  // namespace kit
