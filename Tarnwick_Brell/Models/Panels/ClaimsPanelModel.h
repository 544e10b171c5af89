#pragma once

#include <vector>

#include "NewsroomKit/Panels/Claims.h"
#include "Tarnwick_Brell/Models/Panels/QueryPanelModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"

namespace app {

struct ClaimRow {
    Q_GADGET
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString age MEMBER age)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(bool isRead MEMBER isRead)
    Q_PROPERTY(app::StorySourcing::Value firmness MEMBER firmness)
    Q_PROPERTY(QString stateLabel MEMBER stateLabel)
    Q_PROPERTY(QString standing MEMBER standing)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString storyID{};
    QString outlet{};
    QString age{};
    QString title{};
    bool isRead = false;
    StorySourcing::Value firmness = StorySourcing::Rumor;  ///< what it has become
    QString stateLabel{};
    QString standing{};  ///< who else says so, and what Apple said
    QString spokenText{};

    bool operator==(const ClaimRow&) const = default;
};

/// What outlets report or rumor, beside what Apple said about it.
class ClaimsPanelModel final : public QueryPanelModel {
    Q_OBJECT
public:
    ClaimsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                     const kit::StoryQuery& query);

    QAbstractListModel* rows() override { return &rows_; }
    void open(int row) override;

private:
    void show(const std::vector<kit::Claim>& claims, const Extent& extent);
    static QString standing(const kit::Claim& claim, kit::Instant now);

    GadgetListModel<ClaimRow> rows_;
};

}  // namespace app
