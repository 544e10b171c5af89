#pragma once

#include <string>

#include "NewsroomKit/Editorial/SourcingRules.h"
#include "NewsroomKit/Editorial/StoryKindRules.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// A decision as a sentence for the reader, e.g. "Report: the headline says “reportedly”."
std::string explanation(const KindDecision& decision);
std::string explanation(const SourcingDecision& decision);

/// Why a story has its labels, as a sentence for the reader. Labels are assigned when a story is
/// fetched; when the current rules would assign another one, the sentence says so.
std::string kindReason(const Story& story);
std::string sourcingReason(const Story& story);

}  // namespace kit
