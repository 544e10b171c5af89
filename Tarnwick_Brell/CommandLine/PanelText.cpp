#include "Tarnwick_Brell/CommandLine/PanelText.h"

#include <algorithm>

#include "Tarnwick_Brell/CommandLine/ChangePanels.h"
#include "Tarnwick_Brell/CommandLine/StoryPanels.h"
#include "Tarnwick_Brell/CommandLine/TrackerPanels.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"

namespace cli {

using kit::PanelKind;
using kit::PanelSpec;

/// A panel's row on the grid holds about two lines of text.
std::size_t lineCount(const PanelSpec& panel) {
    constexpr std::int64_t kFewest = 2, kMost = 24;
    return static_cast<std::size_t>(std::clamp(panel.frame.height, kFewest, kMost)) * 2;
}

std::vector<std::string> panelLines(PanelHoldings& holdings, const PanelSpec& panel,
                                    const kit::StoryQuery& query) {
    switch (panel.kind) {
        case PanelKind::stream: return streamLines(holdings, panel, query);
        case PanelKind::brief: return briefPanelLines(holdings, query);
        case PanelKind::topStories: return topStoriesLines(holdings, panel, query);
        case PanelKind::countdown: return countdownLines(holdings, panel);
        case PanelKind::claims: return claimsLines(holdings, panel, query);
        case PanelKind::stock: return stockLines(holdings, panel);
        case PanelKind::software: return softwareLines(holdings, panel);
        case PanelKind::status: return statusLines(holdings, panel);
        case PanelKind::coverage: return coverageLines(holdings, panel, query);
        case PanelKind::apple: return appleLines(holdings, panel, query);
        case PanelKind::clips: return clipsLines(holdings, panel);
        case PanelKind::pageWatch: return pageWatchLines(holdings, panel);
        case PanelKind::scoops: return scoopsLines(holdings, panel, query);
        case PanelKind::suppliers: return suppliersLines(holdings);
        case PanelKind::backend: return backendLines(holdings, panel);
        case PanelKind::records: return recordsLines(holdings, panel);
        case PanelKind::releases: return releasesLines(holdings, panel);
    }
    return {};
}

}  // namespace cli
