#pragma once

#include <vector>

#include "NewsroomKit/Backend/BackendAPI.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace app {

/// A public file of Apple's, whose findings are recorded and logged.
TrackedFile<kit::WatchedAnswer> backendFile(const kit::WatchedFile& file);

/// Every one that is watched.
std::vector<TrackedFile<kit::WatchedAnswer>> backendFiles();

}  // namespace app
