#pragma once

#include <string_view>

namespace kit {

/// Whether a page says that its reader was taken for a robot or kept out, instead of what stands at
/// the address. `text` is all of its text; long pages never do.
bool isBlockPage(std::string_view title, std::string_view text);

}  // namespace kit
