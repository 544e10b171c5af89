#pragma once

#include <cstddef>
#include <string>

namespace cli {

/// The bytes of a file, "-" for the standard input: at most one more than `limit`, so that a
/// stream without end ends. Throws WorkFailed.
std::string readInput(const std::string& file, std::size_t limit);

}  // namespace cli
