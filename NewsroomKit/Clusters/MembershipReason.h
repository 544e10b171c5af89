#pragma once

#include <span>
#include <string>

#include "NewsroomKit/Clusters/ClusterEntry.h"

namespace kit {

/// Why `member` tells the same news as the other entries, in one English sentence: its strongest
/// tie. Equal ones: the earliest other entry.
std::string membershipReason(const ClusterEntry& member,
                             std::span<const ClusterEntry* const> cluster);

inline constexpr const char* kJoinedByUser = "Joined by you.";

}  // namespace kit
