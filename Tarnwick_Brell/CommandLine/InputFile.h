#pragma once

#include <cstddef>
#include <string>

namespace cli {

/// Reads a file, or standard input for "-": at most one byte more than `limit`, so that an endless
/// stream ends. Throws WorkFailed.
std::string readInput(const std::string& file, std::size_t limit);

}  // namespace cli
