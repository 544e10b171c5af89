#pragma once

#include <QString>

#include "Tarnwick_Brell/Desk/SourceOverview.h"
#include "Tarnwick_Brell/Models/Pages/SourcesPageModel.h"

/// The words of the table of sources.
namespace app {

SourceTableRow sourceTableRow(const SourceLine& line, kit::Instant now);
SourceDetail sourceDetail(const SourceLine& line, const TryHistory& history, kit::Instant now);
std::vector<SourceFailureRow> sourceFailures(const TryHistory& history, std::size_t most,
                                             kit::Instant now);
/// "45 sources, 31 on, 1 failing · 26 answered in the last hour"
QString sourcesFootText(const std::vector<SourceLine>& lines, kit::Instant now);

/// The shortest time between two fetches, in seconds, at that place of `SourceDetail::intervals`;
/// nothing for the one of the catalogue.
std::optional<double> sourceInterval(int choice);

/// "Failing since Yesterday 14:32: The server answered 503.", "Unchanged", "Switched off".
QString sourceStateText(const SourceLine& line, kit::Instant now);
/// One line for a message to whoever runs the source.
QString sourceReportText(const SourceLine& line, kit::Instant now);

}  // namespace app
