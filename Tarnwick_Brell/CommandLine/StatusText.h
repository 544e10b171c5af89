#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Status/StatusFeed.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"
#include "Tarnwick_Brell/Storage/Histories/IncidentLog.h"

namespace cli {

/// First whether all is well, then each service in trouble, since when and why.
void printStatus(Output& out, kit::StatusFeed audience,
                 const kit::AppleServiceStatus::Services& services, kit::Instant now);

/// What is over, or to come, of the incidents that began since `cutOff`; newest first.
void printRecentIncidents(Output& out, const kit::AppleServiceStatus::Services& services,
                          kit::Instant now);

/// As the desk saw them itself, whatever Apple's files still tell.
void printIncidentLog(Output& out, const std::vector<app::LoggedIncident>& incidents);

}  // namespace cli
