#pragma once

#include <QString>

#include "NewsroomKit/Trackers/SoftwareRelease.h"

/// Builds in words.
namespace desk {

/// "26.6 b1", "26.6 RC", "26.6"; the stage as the service has it when it is another.
QString versionText(const newsroom::SoftwareRelease& release);

/// Published within the last three days.
bool isNewBuild(const newsroom::SoftwareRelease& release, newsroom::Instant now);

}  // namespace desk
