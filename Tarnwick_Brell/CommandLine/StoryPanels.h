#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Newsrooms/PanelSpec.h"
#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"

/// The panels that show stories, in lines of text.
namespace cli {

using PanelLines = std::vector<std::string>;

PanelLines streamLines(PanelHoldings& holdings, const kit::PanelSpec& panel,
                       const kit::StoryQuery& query);
PanelLines appleLines(PanelHoldings& holdings, const kit::PanelSpec& panel,
                      const kit::StoryQuery& query);
PanelLines briefPanelLines(PanelHoldings& holdings, const kit::StoryQuery& query);
PanelLines topStoriesLines(PanelHoldings& holdings, const kit::PanelSpec& panel,
                           const kit::StoryQuery& query);
PanelLines claimsLines(PanelHoldings& holdings, const kit::PanelSpec& panel,
                       const kit::StoryQuery& query);
PanelLines coverageLines(PanelHoldings& holdings, const kit::PanelSpec& panel,
                         const kit::StoryQuery& query);
PanelLines scoopsLines(PanelHoldings& holdings, const kit::PanelSpec& panel,
                       const kit::StoryQuery& query);

}  // namespace cli
