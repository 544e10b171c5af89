#pragma once

#include <string_view>

namespace app {

/// Whether the text of a story's page is fetched and kept when the story is saved.
inline constexpr std::string_view kKeepSavedText = "keepSavedText";

}  // namespace app
