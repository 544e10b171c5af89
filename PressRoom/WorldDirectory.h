#pragma once

#include <filesystem>

namespace pressroom {

/// Where the sample world lies when nobody names another place: beside an installed
/// program in ../share/tarnwick-brell/world, otherwise in the source tree it was built from.
std::filesystem::path defaultWorldDirectory();

}  // namespace pressroom
