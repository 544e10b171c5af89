#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"

#include "Tarnwick_Brell/Models/Panels/BackendPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/BriefPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/ClaimsPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/ClipsPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/CountdownPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/CoveragePanelModel.h"
#include "Tarnwick_Brell/Models/Panels/PageWatchPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/RecordsPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/ReleasesPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/ScoopsPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SoftwarePanelModel.h"
#include "Tarnwick_Brell/Models/Panels/StatusPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/StockPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/StreamPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SuppliersPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/TopStoriesPanelModel.h"

namespace app {

std::unique_ptr<PanelModel> makePanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                           const kit::StoryQuery& query) {
    using kit::PanelKind;
    // clang-format off
    switch (panel.kind) {
        case PanelKind::stream: return std::make_unique<StreamPanelModel>(stores, panel, query);
        case PanelKind::brief: return std::make_unique<BriefPanelModel>(stores, panel, query);
        case PanelKind::topStories: return std::make_unique<TopStoriesPanelModel>(stores, panel, query);
        case PanelKind::countdown: return std::make_unique<CountdownPanelModel>(stores, panel);
        case PanelKind::claims: return std::make_unique<ClaimsPanelModel>(stores, panel, query);
        case PanelKind::stock: return std::make_unique<StockPanelModel>(stores, panel);
        case PanelKind::software: return std::make_unique<SoftwarePanelModel>(stores, panel);
        case PanelKind::status: return std::make_unique<StatusPanelModel>(stores, panel);
        case PanelKind::coverage: return std::make_unique<CoveragePanelModel>(stores, panel, query);
        case PanelKind::clips: return std::make_unique<ClipsPanelModel>(stores, panel);
        case PanelKind::apple: return std::make_unique<StreamPanelModel>(stores, panel, query);
        case PanelKind::pageWatch: return std::make_unique<PageWatchPanelModel>(stores, panel);
        case PanelKind::scoops: return std::make_unique<ScoopsPanelModel>(stores, panel, query);
        case PanelKind::suppliers: return std::make_unique<SuppliersPanelModel>(stores, panel);
        case PanelKind::backend: return std::make_unique<BackendPanelModel>(stores, panel);
        case PanelKind::records: return std::make_unique<RecordsPanelModel>(stores, panel);
        case PanelKind::releases: return std::make_unique<ReleasesPanelModel>(stores, panel);
    }
    // clang-format on
    return nullptr;
}

}  // namespace app
