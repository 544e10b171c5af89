#pragma once

#include <optional>
#include <span>
#include <vector>

#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Status/LoggedIncident.h"

namespace kit {

/// An announced incident is not ongoing either, and may already have a planned end.
bool isOver(const AppleServiceStatus::Incident& incident, Instant now);

/// Problems that began, ended, or came and went between two answers, both of which must be
/// complete. A service that the first answer lacks brings no past problems.
std::vector<Signal> signalsOf(const std::optional<AppleServiceStatus::Services>& before,
                              const AppleServiceStatus::Services& after, StatusFeed audience,
                              Instant now);

/// The same signals from a history.
std::vector<Signal> pastSignals(std::span<const LoggedIncident> incidents);

}  // namespace kit
