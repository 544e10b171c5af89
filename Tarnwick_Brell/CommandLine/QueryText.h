#pragma once

#include <string>

#include "NewsroomKit/Queries/StoryQuery.h"

namespace cli {

/// A query in words: "iPhone 18 or A20, without case, from macrumors", "every story" when it asks
/// for nothing.
std::string queryText(const kit::StoryQuery& query);

}  // namespace cli
