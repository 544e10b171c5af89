#pragma once

#include <optional>
#include <vector>

#include "NewsroomKit/Signals/AppStoreCharts.h"
#include "NewsroomKit/Signals/AppleUpdateCatalog.h"
#include "NewsroomKit/Signals/SigningStatus.h"

/// The latest answer with what must not be believed to be gone before a second answer in a row
/// says so; nothing when that is nothing.
namespace desk {

/// Builds do not vanish, and are not signed no longer, at once.
std::optional<newsroom::SigningStatus> mended(const newsroom::SigningStatus& before,
                                              const newsroom::SigningStatus& latest);

std::optional<std::vector<newsroom::UpdateOffer>> mended(
    const std::vector<newsroom::UpdateOffer>& before,
    const std::vector<newsroom::UpdateOffer>& latest);

/// Apps come and go, but a chart does not become shorter: then the one before stands.
std::optional<std::vector<newsroom::ChartEntry>> mended(
    const std::vector<newsroom::ChartEntry>& before,
    const std::vector<newsroom::ChartEntry>& latest);

}  // namespace desk
