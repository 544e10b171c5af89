#pragma once

#include <chrono>
#include <optional>

#include "NewsroomKit/Newsrooms/PanelKind.h"

namespace kit {

/// How far back a panel of this kind looks for news. None for kinds that are not made from the news
/// of a fixed span.
std::optional<std::chrono::hours> spanOf(PanelKind kind);

}  // namespace kit
