#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/PhraseTables.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Whether a story relays a statement of Apple's own rather than the outlet's news. The expressions
/// match the published text; they ignore letter case but fold nothing.
namespace AppleOrigin {

bool isAppleOnRecord(const Story& story);
bool isAppleOnRecord(std::string_view title, std::string_view summary);

/// The part of the story that has Apple's statement; the headline is tested first.
std::optional<RuleHit::Where> explain(std::string_view title, std::string_view summary);

}  // namespace AppleOrigin

}  // namespace kit
