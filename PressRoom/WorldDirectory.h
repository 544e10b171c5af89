#pragma once

#include <filesystem>

namespace pressroom {

/// The default folder of the sample world: for an installed program ../share/tarnwick-brell/world
/// beside it, otherwise the source tree it was built from.
std::filesystem::path defaultWorldDirectory();

}  // namespace pressroom
