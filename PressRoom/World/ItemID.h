#pragma once

#include <string>
#include <string_view>

#include "PressRoom/World/WorldFile.h"

namespace pressroom {

/// A platform's short id of an item: eleven letters on YouTube, a long number on Mastodon, …
/// Derived from `seed` alone.
std::string itemKey(Platform platform, std::string_view seed);

/// Base 64 with the alphabet for addresses.
std::string addressBase64(std::string_view bytes);

}  // namespace pressroom
