#pragma once

#include <optional>
#include <vector>

#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Releases/PlatformRelease.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"

/// Services cut their lists short now and then, so an item counts as removed only when two answers
/// in a row lack it. Each function gives the latest answer with what it lacks of the one before,
/// and nothing when it lacks nothing.
namespace app {

std::optional<kit::AppleServiceStatus::Services> carryOverMissing(
    const kit::AppleServiceStatus::Services& before,
    const kit::AppleServiceStatus::Services& latest);

/// By channel: a platform may lack its beta alone.
std::optional<std::vector<kit::PlatformRelease>> carryOverMissing(
    const std::vector<kit::PlatformRelease>& before,
    const std::vector<kit::PlatformRelease>& latest);

/// Single events come and go, but a calendar does not lose all of them.
std::optional<std::vector<kit::AppleCalendarEvent>> carryOverMissing(
    const std::vector<kit::AppleCalendarEvent>& before,
    const std::vector<kit::AppleCalendarEvent>& latest);

/// A build that is signed no longer needs a second answer as well.
std::optional<kit::SigningStatus> carryOverMissing(const kit::SigningStatus& before,
                                                   const kit::SigningStatus& latest);

std::optional<std::vector<kit::UpdateOffer>> carryOverMissing(
    const std::vector<kit::UpdateOffer>& before, const std::vector<kit::UpdateOffer>& latest);

/// Apps come and go, but a chart does not become shorter: then the one before stands.
std::optional<std::vector<kit::ChartEntry>> carryOverMissing(
    const std::vector<kit::ChartEntry>& before, const std::vector<kit::ChartEntry>& latest);

}  // namespace app
