#include "Tarnwick_Brell/Models/Panels/BriefPanel.h"
#include "Tarnwick_Brell/Models/Panels/ClaimsPanel.h"
#include "Tarnwick_Brell/Models/Panels/CoveragePanel.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Models/Panels/ScoopsPanel.h"
#include "Tarnwick_Brell/Models/Panels/StoryPanel.h"
#include "Tarnwick_Brell/Models/Panels/TopStoriesPanel.h"

namespace desk {

std::unique_ptr<PanelContent> makeStoryPanel(const PanelStores& stores,
                                             const newsroom::PanelSpec& panel,
                                             const newsroom::StoryQuery& query) {
    using newsroom::PanelKind;
    switch (panel.kind) {
        case PanelKind::stream:
        case PanelKind::apple: return std::make_unique<StoryPanel>(stores, panel, query);
        case PanelKind::brief: return std::make_unique<BriefPanel>(stores, panel, query);
        case PanelKind::topStories: return std::make_unique<TopStoriesPanel>(stores, panel, query);
        case PanelKind::claims: return std::make_unique<ClaimsPanel>(stores, panel, query);
        case PanelKind::coverage: return std::make_unique<CoveragePanel>(stores, panel, query);
        case PanelKind::scoops: return std::make_unique<ScoopsPanel>(stores, panel, query);
        default: return nullptr;
    }
}

}  // namespace desk
