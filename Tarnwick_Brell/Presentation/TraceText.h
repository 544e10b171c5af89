#pragma once

#include <vector>

#include <QString>

#include "NewsroomKit/Panels/TraceContent.h"
#include "Tarnwick_Brell/Presentation/Style.h"

/// The nodes of a trace in words.
namespace app {

/// "Harbour", "Jo Reed on Gull", "An unknown outlet".
QString outletText(const kit::TraceTreeRow& row);

/// "16 May 14:32", "16 May", "Time unknown".
QString whenText(const kit::TraceTreeRow& row, kit::Instant now,
                 const Style& style = Style::ofUser());

/// How a node refers to its parent: "linked as “according to the Tide”". Without words of its own
/// it quotes the parent's name.
QString referenceText(const kit::TraceTreeRow& row, const kit::TraceTreeRow* parent);

/// The node of `rows` that the row hangs below; null for an origin.
const kit::TraceTreeRow* parentOf(const std::vector<kit::TraceTreeRow>& rows,
                                  const kit::TraceTreeRow& row);

}  // namespace app
