#pragma once

#include <string>

#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Why a story has its labels, as a sentence for the reader. Labels are assigned when a story is
/// fetched; when the current rules would assign another one, the sentence says so.
std::string kindReason(const Story& story);
std::string sourcingReason(const Story& story);

}  // namespace kit
