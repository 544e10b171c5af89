#pragma once

#include <string>

#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Why a story has its labels, as a sentence for the reader. Labels are given when a story is
/// fetched; where today's rules would give another one, the sentence says so.
std::string kindReason(const Story& story);
std::string sourcingReason(const Story& story);

}  // namespace kit
