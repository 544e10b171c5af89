#pragma once

#include <QString>

#include "NewsroomKit/Panels/FindingContent.h"
#include "Tarnwick_Brell/Presentation/Style.h"

/// Findings in Apple's public files, in words.
namespace app {

/// "Seen 14:20, not there at the poll before, 14:10."
QString findingSightText(const kit::BackendFinding& finding, kit::Instant now,
                         const Style& style = Style::ofUser());

/// "Polls: 14:10 without it, 14:20 and 14:30 with it."
QString findingPollsText(const kit::BackendFinding& finding, kit::Instant now,
                         const Style& style = Style::ofUser());

/// A line with its indent.
QString stateLineText(const kit::StateLine& line);

/// What can be pasted as evidence: the fact, the address, both times and the lines.
QString findingEvidence(const kit::BackendFinding& finding, const kit::FindingSides& sides);

}  // namespace app
