#pragma once

#include <string>
#include <vector>

#include <QString>

#include "NewsroomKit/Panels/SigningContent.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

/// Firmware and updates in words.
namespace app {

/// "27.1 (24B83)"
QString buildText(const std::string& version, const std::string& build);

/// "Phone 17, Phone 17 Plus and 4 others"
QString devicesText(const std::vector<std::string>& names);

/// What the store holds of each model whose signing is followed.
std::vector<kit::DeviceSigning> signingOf(const TrackerStore& store);

}  // namespace app
