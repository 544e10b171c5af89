#include "Tarnwick_Brell/Models/Panels/BackendPanel.h"
#include "Tarnwick_Brell/Models/Panels/ChartPanel.h"
#include "Tarnwick_Brell/Models/Panels/CountdownPanel.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Models/Panels/RecordsPanel.h"
#include "Tarnwick_Brell/Models/Panels/ReleasesPanel.h"
#include "Tarnwick_Brell/Models/Panels/SignedPanel.h"
#include "Tarnwick_Brell/Models/Panels/SoftwarePanel.h"
#include "Tarnwick_Brell/Models/Panels/StatusPanel.h"
#include "Tarnwick_Brell/Models/Panels/StockPanel.h"
#include "Tarnwick_Brell/Models/Panels/SuppliersPanel.h"

namespace desk {

std::unique_ptr<PanelContent> makeTrackerPanel(const PanelStores& stores,
                                               const newsroom::PanelSpec& panel) {
    using newsroom::PanelKind;
    switch (panel.kind) {
        case PanelKind::countdown: return std::make_unique<CountdownPanel>(stores, panel);
        case PanelKind::stock: return std::make_unique<StockPanel>(stores, panel);
        case PanelKind::software: return std::make_unique<SoftwarePanel>(stores, panel);
        case PanelKind::status: return std::make_unique<StatusPanel>(stores, panel);
        case PanelKind::suppliers: return std::make_unique<SuppliersPanel>(stores, panel);
        case PanelKind::backend: return std::make_unique<BackendPanel>(stores, panel);
        case PanelKind::records: return std::make_unique<RecordsPanel>(stores, panel);
        case PanelKind::releases: return std::make_unique<ReleasesPanel>(stores, panel);
        default: return nullptr;
    }
}

std::unique_ptr<PanelContent> makePageContent(const PanelStores& stores, PanelContent::Kind kind) {
    if (kind == PanelContent::SignedBuilds) return std::make_unique<SignedPanel>(stores);
    return std::make_unique<ChartPanel>(stores, kind);
}

}  // namespace desk
