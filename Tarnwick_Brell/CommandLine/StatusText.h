#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Trackers/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/StatusAudience.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"
#include "Tarnwick_Brell/Storage/IncidentLog.h"

namespace brell {

/// First whether all is well, then each service in trouble, since when and why.
void printStatus(Output& out, newsroom::StatusAudience audience,
                 const newsroom::AppleServiceStatus::Services& services, newsroom::Instant now);

/// What is over, or to come, of the incidents that began since `cutOff`; newest first.
void printRecentIncidents(Output& out, const newsroom::AppleServiceStatus::Services& services,
                          newsroom::Instant cutOff, newsroom::Instant now);

/// As the desk saw them itself, whatever Apple's files still tell.
void printIncidentLog(Output& out, const std::vector<desk::LoggedIncident>& incidents);

/// "outage" or "Outage", as Apple has it, in small letters.
std::string incidentKindText(std::string_view kind);

}  // namespace brell
