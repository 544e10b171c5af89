#pragma once

#include <functional>
#include <string>
#include <vector>

#include "NewsroomKit/Clusters/ClusterOverrides.h"
#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// When a story was published; null for a story that is not held.
using StoryTimes = std::function<const Instant*(const std::string& storyID)>;

/// Lays what the user has said over clusters that rules have found. Joins first, then splits. Each
/// story is in one cluster at most, and each cluster has a reason for each story.
void applyOverrides(const ClusterOverrides& overrides, const StoryTimes& timeOf,
                    std::vector<StoryCluster>& clusters);

}  // namespace kit
