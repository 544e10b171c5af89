#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Panels/StatusContent.h"
#include "NewsroomKit/Trackers/Status/StatusFeed.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"
#include "Tarnwick_Brell/Storage/Histories/IncidentLog.h"

namespace cli {

/// First whether all is well, then each service that has a problem, since when and why.
void printStatus(Output& out, kit::StatusFeed audience, const kit::StatusContent& content);

/// The incidents of the last 14 days that are over, the last begun first.
void printRecentIncidents(Output& out, const kit::StatusContent& content);

/// As the desk saw them itself, whatever Apple's files still contain.
void printIncidentLog(Output& out, const std::vector<app::LoggedIncident>& incidents);

}  // namespace cli
