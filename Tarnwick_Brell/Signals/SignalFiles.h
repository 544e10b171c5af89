#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/Signals/AppStoreCharts.h"
#include "NewsroomKit/Signals/AppleUpdateCatalog.h"
#include "NewsroomKit/Signals/SigningStatus.h"
#include "Tarnwick_Brell/Trackers/TrackedFile.h"

namespace desk {

inline constexpr std::string_view kSigningNames = "signing/";

TrackedFile<newsroom::SigningStatus> signingFile(std::string_view device);
TrackedFile<std::vector<newsroom::UpdateOffer>> updatesFile();
TrackedFile<std::vector<newsroom::ChartEntry>> chartFile(newsroom::AppStoreCharts::Kind kind);

}  // namespace desk
