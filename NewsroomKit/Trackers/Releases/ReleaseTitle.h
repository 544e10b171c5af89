#pragma once

#include <string>

#include "NewsroomKit/Trackers/Releases/SoftwareRelease.h"

namespace kit {

/// What the service calls the build, or else its platform, version and stage: "iOS 26.6 beta 1".
std::string titleOf(const std::string& platform, const SoftwareRelease& release);

}  // namespace kit
