#pragma once

#include <vector>

#include "NewsroomKit/Panels/Coverage.h"
#include "Tarnwick_Brell/Models/Panels/QueryPanelModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

struct CoverageBar {
    Q_GADGET
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString stories MEMBER stories)
    Q_PROPERTY(double fraction MEMBER fraction)
    Q_PROPERTY(QString firsts MEMBER firsts)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString outlet{};
    QString stories{};
    double fraction = 0;  ///< of the most that an outlet has, 0 to 1
    QString firsts{};     ///< "first 3×"; empty when it never was
    QString spokenText{};

    bool operator==(const CoverageBar&) const = default;
};

/// Which outlets cover the panel's subject, and how often each was first.
class CoveragePanelModel final : public QueryPanelModel {
    Q_OBJECT
public:
    CoveragePanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                       const kit::StoryQuery& query);

    QAbstractListModel* rows() override { return &rows_; }
    /// An outlet is no story.
    void open(int) override {}

private:
    void show(const std::vector<kit::CoverageRow>& outlets, const Extent& extent);

    GadgetListModel<CoverageBar> rows_;
};

}  // namespace app
