#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Newsrooms/PanelSpec.h"
#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"

/// The panels that show stories, in lines of text.
namespace brell {

using PanelLines = std::vector<std::string>;

PanelLines streamLines(PanelHoldings& holdings, const newsroom::PanelSpec& panel,
                       const newsroom::StoryQuery& query);
PanelLines appleLines(PanelHoldings& holdings, const newsroom::PanelSpec& panel,
                      const newsroom::StoryQuery& query);
PanelLines briefPanelLines(PanelHoldings& holdings, const newsroom::StoryQuery& query);
PanelLines topStoriesLines(PanelHoldings& holdings, const newsroom::PanelSpec& panel,
                           const newsroom::StoryQuery& query);
PanelLines claimsLines(PanelHoldings& holdings, const newsroom::PanelSpec& panel,
                       const newsroom::StoryQuery& query);
PanelLines coverageLines(PanelHoldings& holdings, const newsroom::PanelSpec& panel,
                         const newsroom::StoryQuery& query);
PanelLines scoopsLines(PanelHoldings& holdings, const newsroom::PanelSpec& panel,
                       const newsroom::StoryQuery& query);

}  // namespace brell
