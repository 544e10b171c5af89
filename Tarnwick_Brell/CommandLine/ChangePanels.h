#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Newsrooms/PanelSpec.h"
#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"

/// The panels that show what changed in firmware signing, in the update catalogue and on pages, and
/// the clips.
namespace cli {

std::vector<std::string> recordsLines(PanelHoldings& holdings, const kit::PanelSpec& panel);
std::vector<std::string> backendLines(PanelHoldings& holdings, const kit::PanelSpec& panel);
std::vector<std::string> clipsLines(PanelHoldings& holdings, const kit::PanelSpec& panel);
std::vector<std::string> pageWatchLines(PanelHoldings& holdings, const kit::PanelSpec& panel);

}  // namespace cli
