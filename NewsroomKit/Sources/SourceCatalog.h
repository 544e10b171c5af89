#pragma once

#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"

namespace kit {

/// The built-in sources, in the order of the sidebar.
std::vector<NewsSource> defaultSourceCatalog();

}  // namespace kit
