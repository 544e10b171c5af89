#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Editorial/RuleHit.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Does a story relay Apple speaking for itself, rather than news of the outlet's own? The
/// expressions read the text as published, letter case ignored but nothing folded.
namespace AppleOrigin {

bool isAppleOnRecord(const Story& story);
bool isAppleOnRecord(std::string_view title, std::string_view summary);

/// Which part of the story has Apple speaking, the headline asked first.
std::optional<RuleHit::Where> explain(std::string_view title, std::string_view summary);

}  // namespace AppleOrigin

}  // namespace kit
