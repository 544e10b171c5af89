#pragma once

#include <string>

#include "NewsroomKit/Outlines/Outlines.h"

namespace kit {

/// The list as OPML 2.0. Consecutive feeds of one folder share it; one without an address is
/// written with its name and site only.
std::string writeOutlines(const Outlines& outlines);

}  // namespace kit
