#pragma once

#include <vector>

#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Desk/RefreshPass.h"

namespace brell {

/// A line for each source, then what the pass brought in all.
void printOutcomes(Session& session, const std::vector<desk::SourceOutcome>& outcomes);

/// {"sources": [{"id", "name", "outcome", "added", "revised", "status"…}], "added": …}
void printOutcomesJSON(Session& session, const std::vector<desk::SourceOutcome>& outcomes);

}  // namespace brell
