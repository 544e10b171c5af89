#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/PhraseTables.h"

namespace kit {

/// Whether a text is about Apple at all.
namespace AppleTopic {

bool matches(std::string_view text);
/// The phrase that decides it; nothing when the text is not about Apple.
std::optional<RuleHit> explain(std::string_view text);

}  // namespace AppleTopic

}  // namespace kit
