#pragma once

#include <string>

#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"
#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"

namespace cli {

/// One story in one line: the beginning of its id, its marks, age, outlet, labels and title. In a
/// terminal it fits the width: labels, then outlet and age give way, and the title is cut.
std::string wireLine(const Output& out, const app::StoredStory& stored, kit::Instant now);

/// The story's address, to stand below that line. It is never cut.
std::string linkLine(const app::StoredStory& stored);

}  // namespace cli
