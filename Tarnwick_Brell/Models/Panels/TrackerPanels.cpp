#include "Tarnwick_Brell/Models/Panels/BackendPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/ChartPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/CountdownPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Models/Panels/RecordsPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/ReleasesPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SignedPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SoftwarePanelModel.h"
#include "Tarnwick_Brell/Models/Panels/StatusPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/StockPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SuppliersPanelModel.h"

namespace app {

std::unique_ptr<PanelModel> makeTrackerPanel(const PanelStores& stores,
                                             const kit::PanelSpec& panel) {
    using kit::PanelKind;
    switch (panel.kind) {
        case PanelKind::countdown: return std::make_unique<CountdownPanelModel>(stores, panel);
        case PanelKind::stock: return std::make_unique<StockPanelModel>(stores, panel);
        case PanelKind::software: return std::make_unique<SoftwarePanelModel>(stores, panel);
        case PanelKind::status: return std::make_unique<StatusPanelModel>(stores, panel);
        case PanelKind::suppliers: return std::make_unique<SuppliersPanelModel>(stores, panel);
        case PanelKind::backend: return std::make_unique<BackendPanelModel>(stores, panel);
        case PanelKind::records: return std::make_unique<RecordsPanelModel>(stores, panel);
        case PanelKind::releases: return std::make_unique<ReleasesPanelModel>(stores, panel);
        default: return nullptr;
    }
}

std::unique_ptr<PanelModel> makePageContent(const PanelStores& stores, PanelModel::Kind kind) {
    if (kind == PanelModel::SignedBuilds) return std::make_unique<SignedPanelModel>(stores);
    return std::make_unique<ChartPanelModel>(stores, kind);
}

}  // namespace app
