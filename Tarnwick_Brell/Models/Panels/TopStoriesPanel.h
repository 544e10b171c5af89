#pragma once

#include <vector>

#include "NewsroomKit/Panels/TopStories.h"
#include "Tarnwick_Brell/Models/Panels/GatheredPanel.h"
#include "Tarnwick_Brell/Models/Rows/RowsModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"

namespace desk {

struct TopStoryRow {
    Q_GADGET
    Q_PROPERTY(QString outletCount MEMBER outletCount)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(bool isRead MEMBER isRead)
    Q_PROPERTY(desk::StorySourcing::Value sourcing MEMBER sourcing)
    Q_PROPERTY(QString sourcingLabel MEMBER sourcingLabel)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString lead MEMBER lead)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString storyID{};
    QString outletCount{};
    QString title{};
    bool isRead = false;  ///< all of its stories
    StorySourcing::Value sourcing = StorySourcing::Unlabeled;
    QString sourcingLabel{};
    QString outlet{};  ///< the first
    QString lead{};
    QString spokenText{};

    bool operator==(const TopStoryRow&) const = default;
};

/// News that several outlets cover.
class TopStoriesPanel final : public GatheredPanel {
    Q_OBJECT
public:
    TopStoriesPanel(const PanelStores& stores, const newsroom::PanelSpec& panel,
                    const newsroom::StoryQuery& query);

    QAbstractListModel* rows() override { return &rows_; }
    void open(int row) override;

private:
    void show(const std::vector<newsroom::TopStory>& stories, const Extent& extent);

    RowsModel<TopStoryRow> rows_;
};

}  // namespace desk
