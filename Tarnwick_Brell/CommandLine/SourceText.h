#pragma once

#include <cstdint>
#include <string>

namespace cli {

/// ", 98 more share its link", for a number of stories. `collapsed`: stories of the feed that
/// share their link with one of those that count; without any it says nothing.
std::string collapsedText(std::int64_t stories, std::int64_t collapsed);

/// "12 stories", "1 story, 98 more share its link", "no stories in it".
std::string storyCountText(std::int64_t stories, std::int64_t collapsed);

}  // namespace cli
