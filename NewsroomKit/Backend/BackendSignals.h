#pragma once

#include <vector>

#include "NewsroomKit/Backend/BackendFinding.h"
#include "NewsroomKit/Signals/Signal.h"

namespace kit {

/// A signal for each finding that is told.
std::vector<Signal> signalsOf(const std::vector<BackendFinding>& findings);

/// What the finding can mean and what it can't, in one paragraph.
std::string meaningText(const BackendFinding& finding);

}  // namespace kit
