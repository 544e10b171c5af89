#pragma once

#include <cstddef>
#include <vector>

#include "NewsroomKit/Alerts/AlertRule.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Storage/Histories/AlertHistory.h"

namespace cli {

/// What the rule would have told of the last days, from the library.
void printRehearsal(Session& session, const kit::AlertRule& rule, std::size_t days);

void printAlertHistory(Session& session, const std::vector<app::StoredAlert>& alerts);

}  // namespace cli
