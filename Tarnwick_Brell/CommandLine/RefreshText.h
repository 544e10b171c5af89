#pragma once

#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Desk/RefreshPass.h"

namespace cli {

/// A line for each source, then the totals of the pass.
void printReport(Session& session, const app::PassReport& report);

/// {"sources": [{"id", "name", "outcome", "added", "revised", "status"…}], "added": …}
void printReportJSON(Session& session, const app::PassReport& report);

}  // namespace cli
