#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kit::SourceAddress {

/// Feed addresses to try, in order, for a typed text: a feed, a website, a fediverse or Bluesky
/// handle, or a channel's address. Empty when the text is unusable.
std::vector<std::string> candidates(std::string_view typed);

}  // namespace kit::SourceAddress
