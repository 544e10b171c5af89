#pragma once

#include <string>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace brell {

/// "stream, status and stock"
std::string panelsText(const newsroom::NewsroomSpec& spec);

}  // namespace brell
