#pragma once

#include <QAbstractListModel>

#include "NewsroomKit/Panels/SoftwareContent.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A build that was once at the top of its platform's channel.
struct ReleaseRow {
    Q_GADGET
    Q_PROPERTY(QString age MEMBER age)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString build MEMBER build)
    Q_PROPERTY(bool isBeta MEMBER isBeta)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString link MEMBER link)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString age{};
    QString title{};
    QString build{};
    bool isBeta = false;
    bool isNew = false;
    QString link{};
    QString spokenText{};

    bool operator==(const ReleaseRow&) const = default;
};

/// Every release and beta of the panel's platforms that the desk has seen, the last published
/// first.
class ReleasesPanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ReleasesPanelModel)
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    ReleasesPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    GadgetListModel<ReleaseRow>* rows() { return &rows_; }

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::releases); }

private:
    void update();

    kit::Platforms platforms_;
    GadgetListModel<ReleaseRow> rows_;
};

}  // namespace app
