#pragma once

#include <string>

#include "NewsroomKit/Outlines/Outlines.h"

namespace kit {

/// The list as OPML 2.0. Feeds that follow each other in one folder share it; one without an
/// address is written as its name and site alone.
std::string writeOutlines(const Outlines& outlines);

}  // namespace kit
