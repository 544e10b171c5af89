#pragma once

#include <vector>

#include "NewsroomKit/Panels/Scoops.h"
#include "Tarnwick_Brell/Models/Panels/QueryPanelModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

struct ScoopRow {
    Q_GADGET
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(bool isRead MEMBER isRead)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString lead MEMBER lead)
    Q_PROPERTY(QString age MEMBER age)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString storyID{};
    QString title{};
    bool isRead = false;
    QString outlet{};
    QString lead{};
    QString age{};
    QString spokenText{};

    bool operator==(const ScoopRow&) const = default;
};

/// Who told the latest news before the others, and by how much.
class ScoopsPanelModel final : public QueryPanelModel {
    Q_OBJECT
public:
    ScoopsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                     const kit::StoryQuery& query);

    QAbstractListModel* rows() override { return &rows_; }
    void open(int row) override;

private:
    void show(const std::vector<kit::Scoop>& scoops, const Extent& extent);

    GadgetListModel<ScoopRow> rows_;
};

}  // namespace app
