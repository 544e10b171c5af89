#pragma once

#include <vector>

#include "NewsroomKit/Panels/TopStories.h"
#include "Tarnwick_Brell/Models/Panels/QueryPanelModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"

namespace app {

struct TopStoryRow {
    Q_GADGET
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString outletCount MEMBER outletCount)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(bool isRead MEMBER isRead)
    Q_PROPERTY(app::StorySourcing::Value sourcing MEMBER sourcing)
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
class TopStoriesPanelModel final : public QueryPanelModel {
    Q_OBJECT
public:
    TopStoriesPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                         const kit::StoryQuery& query);

    bool hasFigures() const override { return true; }
    QAbstractListModel* rows() override { return &rows_; }
    void open(int row) override;

private:
    void show(const std::vector<kit::TopStory>& stories, const Extent& extent);

    GadgetListModel<TopStoryRow> rows_;
};

}  // namespace app
