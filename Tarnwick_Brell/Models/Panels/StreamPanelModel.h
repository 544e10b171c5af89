#pragma once

#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryListModel.h"

namespace app {

/// Matching stories, newest first, live: the stream, and Apple's own posts.
class StreamPanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(app::StoryListModel* stories READ stories CONSTANT)

public:
    StreamPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                     const kit::StoryQuery& query);

    StoryListModel* stories() { return &stories_; }
    Q_INVOKABLE void open(int row);

private:
    void updateCondition();

    kit::StoryQuery query_;
    kit::PanelKind panelKind_;
    StoryListModel stories_;
};

}  // namespace app
