#pragma once

#include <string>

#include "NewsroomKit/Editorial/SourcingRules.h"
#include "NewsroomKit/Editorial/StoryKindRules.h"

namespace kit {

/// A decision as a sentence for the reader, e.g. "Report: the headline says “reportedly”."
std::string explanation(const KindDecision& decision);
std::string explanation(const SourcingDecision& decision);

}  // namespace kit
