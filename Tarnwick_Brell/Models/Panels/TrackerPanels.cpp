#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"

namespace desk {

std::unique_ptr<PanelContent> makeTrackerPanel(const PanelStores&,
                                               const newsroom::PanelSpec& panel) {
    switch (panel.kind) {
        default: return nullptr;
    }
}

}  // namespace desk
