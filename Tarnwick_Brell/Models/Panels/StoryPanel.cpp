#include "Tarnwick_Brell/Models/Panels/StoryPanel.h"

#include "Tarnwick_Brell/Text/ShownText.h"

namespace desk {

StoryPanel::StoryPanel(const PanelStores& stores, const newsroom::PanelSpec& panel,
                       const newsroom::StoryQuery& query)
    : PanelContent(stores, panel), query_(query), stories_(stores.news, stores.clock) {
    connect(&stories_, &StoryListModel::countChanged, this, &StoryPanel::look);
    stories_.show({.query = query, .isAppleOnly = panel.kind == newsroom::PanelKind::apple});
}

void StoryPanel::look() {
    if (stories_.count() > 0) {
        const auto unread = stories_.unread();
        become({.state = Ready, .fact = unread > 0 ? tr("%n unread", nullptr, unread) : QString()});
    } else if (!stories_.isComplete()) {
        become({.state = Loading});
    } else if (query_.anyTerms.empty()) {
        become({.state = Empty, .message = tr("No story here yet.")});
    } else {
        become(
            {.state = Empty,
             .message = tr("No story mentions “%1”.").arg(titleText(query_.anyTerms.front(), 40))});
    }
}

}  // namespace desk
