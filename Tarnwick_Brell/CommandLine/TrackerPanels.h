#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Newsrooms/PanelSpec.h"
#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"

/// The panels that show trackers, in lines of text: from the last good answers, with their age.
namespace cli {

std::vector<std::string> countdownLines(PanelHoldings& holdings, const kit::PanelSpec& panel);
std::vector<std::string> stockLines(PanelHoldings& holdings, const kit::PanelSpec& panel);
std::vector<std::string> suppliersLines(PanelHoldings& holdings);
std::vector<std::string> softwareLines(PanelHoldings& holdings, const kit::PanelSpec& panel);
std::vector<std::string> releasesLines(PanelHoldings& holdings, const kit::PanelSpec& panel);
std::vector<std::string> statusLines(PanelHoldings& holdings, const kit::PanelSpec& panel);

}  // namespace cli
