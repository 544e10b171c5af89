#pragma once

#include <string>

#include "NewsroomKit/Archive/TraceResult.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"

namespace cli {

/// The trace as a tree from the origins down; `asked` is the address of the traced story.
void printTrace(Output& out, const kit::TraceResult& trace, const std::string& asked);

}  // namespace cli
