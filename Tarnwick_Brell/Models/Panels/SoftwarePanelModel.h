#pragma once

#include <QAbstractListModel>

#include "NewsroomKit/Panels/SoftwareContent.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// The builds of one platform.
struct SoftwareRow {
    Q_GADGET
    Q_PROPERTY(QString platform MEMBER platform)
    Q_PROPERTY(QString version MEMBER version)
    Q_PROPERTY(QString build MEMBER build)
    Q_PROPERTY(QString betaVersion MEMBER betaVersion)
    Q_PROPERTY(QString betaBuild MEMBER betaBuild)
    Q_PROPERTY(bool hasBeta MEMBER hasBeta)
    Q_PROPERTY(QString date MEMBER date)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString platform{};
    QString version{};
    QString build{};
    QString betaVersion{};  ///< "26.6 b1", or that there is none
    QString betaBuild{};
    bool hasBeta = false;
    QString date{};  ///< of the later of the two builds
    bool isNew = false;
    QString spokenText{};

    bool operator==(const SoftwareRow&) const = default;
};

/// The builds that the panel's platforms have now.
class SoftwarePanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SoftwarePanelModel)
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    SoftwarePanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    GadgetListModel<SoftwareRow>* rows() { return &rows_; }

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::releases); }

private:
    void update();

    kit::Platforms platforms_;
    GadgetListModel<SoftwareRow> rows_;
};

}  // namespace app
