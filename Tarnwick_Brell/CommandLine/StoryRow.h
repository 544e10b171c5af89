#pragma once

#include <string>

#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"
#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"

namespace cli {

/// One story in one line: the beginning of its id, its marks, age, outlet, labels and title. It
/// fits the width of a terminal: first the labels, then outlet and age are omitted, and the title
/// is cut.
std::string wireLine(const Output& out, const app::StoredStory& stored, kit::Instant now);

/// The story's address, for the line below. It is never cut.
std::string linkLine(const app::StoredStory& stored);

}  // namespace cli
