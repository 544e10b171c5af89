#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Newsrooms/PanelSpec.h"
#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"

namespace cli {

/// What a panel says, in lines of text: at least one, which says so when there is nothing.
std::vector<std::string> panelLines(PanelHoldings& holdings, const kit::PanelSpec& panel,
                                    const kit::StoryQuery& query);

/// How many lines of a list suit the panel's size.
std::size_t lineCount(const kit::PanelSpec& panel);

}  // namespace cli
