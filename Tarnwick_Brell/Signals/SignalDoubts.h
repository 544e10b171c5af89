#pragma once

#include <optional>
#include <vector>

#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"

/// The latest answer with what must not be believed to be gone before a second answer in a row
/// says so; nothing when that is nothing.
namespace app {

/// Builds do not vanish, and are not signed no longer, at once.
std::optional<kit::SigningStatus> mended(const kit::SigningStatus& before,
                                         const kit::SigningStatus& latest);

std::optional<std::vector<kit::UpdateOffer>> mended(const std::vector<kit::UpdateOffer>& before,
                                                    const std::vector<kit::UpdateOffer>& latest);

/// Apps come and go, but a chart does not become shorter: then the one before stands.
std::optional<std::vector<kit::ChartEntry>> mended(const std::vector<kit::ChartEntry>& before,
                                                   const std::vector<kit::ChartEntry>& latest);

}  // namespace app
