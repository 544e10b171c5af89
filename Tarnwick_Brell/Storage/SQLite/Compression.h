#pragma once

#include <string>
#include <string_view>

namespace app {

/// What large texts are kept as in a column, bound with bindBytes.
std::string compressed(std::string_view text);

/// Throws StoreError when the bytes are damaged.
std::string uncompressed(std::string_view bytes);

}  // namespace app
