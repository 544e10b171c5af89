#pragma once

#include <string>

#include "Tarnwick_Brell/CommandLine/Output.h"
#include "Tarnwick_Brell/Storage/StoredStory.h"

namespace brell {

/// One story in one line: the beginning of its id, its marks, age, outlet, labels and title. On
/// a terminal the title is cut to fit.
std::string wireLine(const Output& out, const desk::StoredStory& stored, newsroom::Instant now);

}  // namespace brell
