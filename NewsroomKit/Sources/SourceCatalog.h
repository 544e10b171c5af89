#pragma once

#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"

namespace kit {

/// The sources that the desk ships with, in the order of the sidebar.
std::vector<NewsSource> defaultSourceCatalog();

}  // namespace kit
