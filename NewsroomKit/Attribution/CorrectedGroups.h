#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"

namespace kit {

/// Groups of story ids after the corrections: joined stories are in one group, and of a pair that
/// is apart the story that was split off leaves, with the stories that are joined to it. A story in
/// several groups stays in the first one; empty groups are dropped.
std::vector<std::vector<std::string>> correctedGroups(std::vector<std::vector<std::string>> groups,
                                                      const CorrectionOverlay& overlay);

}  // namespace kit
