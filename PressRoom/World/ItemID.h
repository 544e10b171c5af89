#pragma once

#include <string>
#include <string_view>

#include "PressRoom/World/WorldFile.h"

namespace pressroom {

/// The short text by which a platform would name an item: eleven letters on YouTube,
/// a long number on Mastodon, … Made from `seed` alone.
std::string itemKey(Platform platform, std::string_view seed);

/// Letters of base 64 as they stand in addresses.
std::string addressBase64(std::string_view bytes);

}  // namespace pressroom
