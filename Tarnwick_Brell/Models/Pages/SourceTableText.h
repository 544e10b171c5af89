#pragma once

#include <QString>

#include "Tarnwick_Brell/Desk/SourceOverview.h"
#include "Tarnwick_Brell/Models/Pages/SourcesPageModel.h"

/// The words of the table of sources.
namespace app {

SourceTableRow sourceTableRow(const SourceLine& line, kit::Instant now);
SourceDetail sourceDetail(const SourceLine& line, kit::Instant now);

/// "Failing since Yesterday 14:32: The server answered 503.", "Unchanged", "Switched off".
QString sourceStateText(const SourceLine& line, kit::Instant now);
/// One line for a message to whoever runs the source.
QString sourceReportText(const SourceLine& line, kit::Instant now);

}  // namespace app
