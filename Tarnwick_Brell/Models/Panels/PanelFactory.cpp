#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"

namespace app {

namespace {

/// A kind whose content nothing collects yet: it says so and shows nothing.
class UncollectedPanel final : public PanelModel {
public:
    UncollectedPanel(const PanelStores& stores, const kit::PanelSpec& panel)
        : PanelModel(stores, panel) {
        become({.state = Empty, .message = sentence(panel.kind), .hint = {}});
    }

private:
    static QString sentence(kit::PanelKind kind) {
        switch (kind) {
            case kit::PanelKind::clips: return PanelModel::tr("The desk can't save quotes yet.");
            case kit::PanelKind::pageWatch:
                return PanelModel::tr("The desk can't follow Apple's pages yet.");
            default: return PanelModel::tr("The desk collects nothing for this panel yet.");
        }
    }
};

}  // namespace

std::unique_ptr<PanelModel> makePanelContent(const PanelStores& stores, const kit::PanelSpec& panel,
                                             const kit::StoryQuery& query) {
    if (auto content = makeStoryPanel(stores, panel, query)) return content;
    if (auto content = makeTrackerPanel(stores, panel)) return content;
    return std::make_unique<UncollectedPanel>(stores, panel);
}

}  // namespace app
