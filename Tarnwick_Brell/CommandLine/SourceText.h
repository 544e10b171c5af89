#pragma once

#include <cstdint>
#include <string>

namespace cli {

/// ", 98 more share its link". `collapsed` is the number of the feed's stories that share their
/// link with a counted one; empty when it is 0.
std::string collapsedText(std::int64_t stories, std::int64_t collapsed);

/// "12 stories", "1 story, 98 more share its link", "no stories in it".
std::string storyCountText(std::int64_t stories, std::int64_t collapsed);

}  // namespace cli
