#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/RuleHit.h"

namespace kit {

/// Is this text about Apple at all?
namespace AppleTopic {

bool matches(std::string_view text);
/// The phrase that makes it so; nothing when it is not.
std::optional<RuleHit> explain(std::string_view text);

}  // namespace AppleTopic

}  // namespace kit
