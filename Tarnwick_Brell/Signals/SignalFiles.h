#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace app {

inline constexpr std::string_view kSigningNames = "signing/";

TrackedFile<kit::SigningStatus> signingFile(std::string_view device);
TrackedFile<std::vector<kit::UpdateOffer>> updatesFile();
TrackedFile<std::vector<kit::ChartEntry>> chartFile(kit::AppStoreCharts::Kind kind);

}  // namespace app
