#pragma once

#include <functional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Attribution/Correction.h"

namespace kit {

/// What the corrections say about which stories tell the same news, free of contradictions.
struct StoryRelations {
    std::vector<std::vector<std::string>> joined{};
    std::vector<std::vector<std::string>> apart{};   ///< see CorrectionOverlay::apart()
    std::set<std::string, std::less<>> overruled{};  ///< ids of corrections without any effect
};

/// The latest correction is applied first, and an earlier one only as far as it contradicts none of
/// those: it never joins two stories that a later one keeps apart, not even through others, and
/// never parts two that later ones join.
StoryRelations resolveRelations(std::span<const Correction* const> oldestFirst);

}  // namespace kit
