#pragma once

#include "Tarnwick_Brell/Models/Panels/PanelContent.h"
#include "Tarnwick_Brell/Models/Stories/StoryListModel.h"

namespace desk {

/// Matching stories, newest first, live: the stream, and Apple's own posts.
class StoryPanel : public PanelContent {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(desk::StoryListModel* stories READ stories CONSTANT)

public:
    StoryPanel(const PanelStores& stores, const newsroom::PanelSpec& panel,
               const newsroom::StoryQuery& query);

    StoryListModel* stories() { return &stories_; }
    Q_INVOKABLE void open(int row);

private:
    void look();
    QString noStory() const;

    newsroom::StoryQuery query_;
    StoryListModel stories_;
};

}  // namespace desk
