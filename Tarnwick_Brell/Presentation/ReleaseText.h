#pragma once

#include <QString>

#include "NewsroomKit/Trackers/Releases/SoftwareRelease.h"

/// Builds in words.
namespace app {

/// "26.6 b1", "26.6 RC", "26.6"; the stage as the service has it when it is another.
QString versionText(const kit::SoftwareRelease& release);

}  // namespace app
