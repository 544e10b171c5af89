#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Court/DocketSheet.h"
#include "NewsroomKit/Signals/Signal.h"

namespace kit {

/// Whether Apple is a party of the case. The search also finds fruit, streets, and cases that
/// only cite one of Apple's.
bool hasAppleAsParty(const CourtCase& found);

/// A signal for each case. `readAt` is the address of the search.
std::vector<Signal> signalsOf(std::span<const CourtCase> added, std::string_view readAt,
                              Instant now);

}  // namespace kit
