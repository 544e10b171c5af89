#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"

namespace desk {

namespace {

/// A kind whose content nothing collects yet: it says so and shows nothing.
class UncollectedPanel final : public PanelContent {
public:
    UncollectedPanel(const PanelStores& stores, const newsroom::PanelSpec& panel)
        : PanelContent(stores, panel) {
        become({.state = Empty, .message = sentence(panel.kind), .hint = {}});
    }

private:
    static QString sentence(newsroom::PanelKind kind) {
        switch (kind) {
            case newsroom::PanelKind::clips: return PanelContent::tr("The desk can't save quotes yet.");
            case newsroom::PanelKind::pageWatch:
                return PanelContent::tr("The desk can't follow Apple's pages yet.");
            default: return PanelContent::tr("The desk collects nothing for this panel yet.");
        }
    }
};

}  // namespace

std::unique_ptr<PanelContent> makePanelContent(const PanelStores& stores,
                                               const newsroom::PanelSpec& panel,
                                               const newsroom::StoryQuery& query) {
    if (auto content = makeStoryPanel(stores, panel, query)) return content;
    if (auto content = makeTrackerPanel(stores, panel)) return content;
    return std::make_unique<UncollectedPanel>(stores, panel);
}

}  // namespace desk
