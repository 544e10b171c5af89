#pragma once

#include <vector>

#include "NewsroomKit/Panels/Brief.h"
#include "Tarnwick_Brell/Models/Panels/QueryPanelModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

struct BriefRow {
    Q_GADGET
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString sentence MEMBER sentence)
    Q_PROPERTY(QString sources MEMBER sources)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString sentence{};
    QString sources{};
    QString storyID{};
    QString link{};  ///< where there is no story
    QString spokenText{};

    bool operator==(const BriefRow&) const = default;
};

/// What changed since the reader's last look: news, Apple's own posts, its services and its
/// systems, in sentences with their sources.
class BriefPanelModel final : public QueryPanelModel {
    Q_OBJECT
public:
    BriefPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                    const kit::StoryQuery& query);

    QAbstractListModel* rows() override { return &rows_; }
    void open(int row) override;

private:
    void show();

    kit::CompiledStoryQuery wanted_;
    std::optional<kit::BriefContent> content_;  ///< absent until stories were gathered
    Extent extent_;
    GadgetListModel<BriefRow> rows_;
};

}  // namespace app
