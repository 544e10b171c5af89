#pragma once

#include <string>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace cli {

/// "stream, status and stock"
std::string panelsText(const kit::NewsroomSpec& spec);

}  // namespace cli
