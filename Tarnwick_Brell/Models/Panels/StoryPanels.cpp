#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Models/Panels/StoryPanel.h"

namespace desk {

std::unique_ptr<PanelContent> makeStoryPanel(const PanelStores& stores,
                                             const newsroom::PanelSpec& panel,
                                             const newsroom::StoryQuery& query) {
    using newsroom::PanelKind;
    switch (panel.kind) {
        case PanelKind::stream:
        case PanelKind::apple: return std::make_unique<StoryPanel>(stores, panel, query);
        default: return nullptr;
    }
}

}  // namespace desk
