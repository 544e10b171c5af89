#include "Tarnwick_Brell/Models/Panels/StreamPanelModel.h"

#include "Tarnwick_Brell/Presentation/EmptyText.h"

namespace app {

StreamPanelModel::StreamPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                   const kit::StoryQuery& query)
    : PanelModel(stores, panel),
      query_(query),
      panelKind_(panel.kind),
      stories_(stores.news, stores.clock) {
    connect(&stories_, &StoryListModel::countChanged, this, &StreamPanelModel::updateCondition);
    connect(&news(), &NewsDesk::loadFailed, this, [this](const QString& sentence) {
        setCondition({.state = Failed, .message = sentence});
    });
    stories_.show({.query = query, .isAppleOnly = panel.kind == kit::PanelKind::apple});
}

void StreamPanelModel::updateCondition() {
    if (stories_.count() > 0) {
        const auto unread = stories_.unread();
        setCondition(
            {.state = Ready, .fact = unread > 0 ? tr("%n unread", nullptr, unread) : QString()});
    } else if (!stories_.isComplete()) {
        setCondition({.state = Loading});
    } else if (news().stories().size() == 0) {
        setCondition({.state = Empty,
                      .message = tr("No stories yet."),
                      .hint = tr("They come with the first refresh.")});
    } else {
        setCondition({.state = Empty, .message = noStoryText(panelKind_, query_)});
    }
}

void StreamPanelModel::open(int row) {
    const auto index = stories_.index(row);
    if (index.isValid()) openStory(index.data(StoryListModel::StoryID).toString());
}

}  // namespace app
