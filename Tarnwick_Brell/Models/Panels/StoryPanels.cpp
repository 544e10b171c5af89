#include "Tarnwick_Brell/Models/Panels/BriefPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/ClaimsPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/CoveragePanelModel.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Models/Panels/ScoopsPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/StoryPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/TopStoriesPanelModel.h"

namespace app {

std::unique_ptr<PanelModel> makeStoryPanel(const PanelStores& stores, const kit::PanelSpec& panel,
                                           const kit::StoryQuery& query) {
    using kit::PanelKind;
    switch (panel.kind) {
        case PanelKind::stream:
        case PanelKind::apple: return std::make_unique<StoryPanelModel>(stores, panel, query);
        case PanelKind::brief: return std::make_unique<BriefPanelModel>(stores, panel, query);
        case PanelKind::topStories:
            return std::make_unique<TopStoriesPanelModel>(stores, panel, query);
        case PanelKind::claims: return std::make_unique<ClaimsPanelModel>(stores, panel, query);
        case PanelKind::coverage: return std::make_unique<CoveragePanelModel>(stores, panel, query);
        case PanelKind::scoops: return std::make_unique<ScoopsPanelModel>(stores, panel, query);
        default: return nullptr;
    }
}

}  // namespace app
