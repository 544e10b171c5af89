#pragma once

#include <string>
#include <string_view>

namespace shared {

/// A rank between two others, so that moving one thing changes no other's rank. Ranks are compared
/// as texts. An empty `before` is the start; an empty `after`, or one that is not greater, the end.
std::string rankBetween(std::string_view before, std::string_view after);

}  // namespace shared
