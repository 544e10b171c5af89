#pragma once

#include <QAbstractListModel>

#include "NewsroomKit/Panels/StatusContent.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Panels/TrackerLabels.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// An ongoing or a recent incident of a service.
struct ProblemRow {
    Q_GADGET
    Q_PROPERTY(QString service MEMBER service)
    Q_PROPERTY(app::ProblemLevel::Value level MEMBER level)
    Q_PROPERTY(QString levelLabel MEMBER levelLabel)
    Q_PROPERTY(QString message MEMBER message)
    Q_PROPERTY(QString began MEMBER began)
    Q_PROPERTY(QString duration MEMBER duration)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString service{};
    ProblemLevel::Value level = ProblemLevel::Issue;
    QString levelLabel{};
    QString message{};
    QString began{};     ///< empty when Apple does not say
    QString duration{};  ///< so far, or until it was over
    QString spokenText{};

    bool operator==(const ProblemRow&) const = default;
};

/// Whether Apple's services are up, the consumers' and the developers'. Figures of developer
/// services that are older than those of the consumers carry their time.
class StatusPanelModel final : public app::PanelModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(StatusPanelModel)
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QAbstractListModel* problems READ problems CONSTANT)
    Q_PROPERTY(QAbstractListModel* recent READ recent CONSTANT)
    Q_PROPERTY(int problemCount READ problemCount NOTIFY changed)
    Q_PROPERTY(QString allUp READ allUp NOTIFY changed)
    Q_PROPERTY(QString consumer READ consumer NOTIFY changed)
    Q_PROPERTY(bool isConsumerUp READ isConsumerUp NOTIFY changed)
    Q_PROPERTY(QString developer READ developer NOTIFY changed)
    Q_PROPERTY(bool isDeveloperUp READ isDeveloperUp NOTIFY changed)
    Q_PROPERTY(bool isDeveloperKnown READ isDeveloperKnown NOTIFY changed)
    Q_PROPERTY(int recentCount READ recentCount NOTIFY changed)
    Q_PROPERTY(QString recentText READ recentText NOTIFY changed)
    Q_PROPERTY(QString checked READ checked NOTIFY changed)

public:
    StatusPanelModel(const PanelStores& stores, const kit::PanelSpec& panel);

    GadgetListModel<ProblemRow>* problems() { return &problems_; }
    GadgetListModel<ProblemRow>* recent() { return &recent_; }
    int problemCount() const { return problems_.rowCount(); }
    /// "All services are up"; empty when one is not, or when one file is missing or old.
    const QString& allUp() const { return allUp_; }
    const QString& consumer() const { return consumer_; }  ///< "58 of 59 consumer up"
    bool isConsumerUp() const { return isConsumerUp_; }
    const QString& developer() const { return developer_; }  ///< "27 of 27 developer up at 11:20"
    bool isDeveloperUp() const { return isDeveloperUp_; }
    /// The figure is of now, not of the last time that the file could be fetched.
    bool isDeveloperKnown() const { return isDeveloperKnown_; }
    int recentCount() const { return recent_.rowCount(); }
    const QString& recentText() const { return recentText_; }  ///< "7 incidents in 14 days"
    const QString& checked() const { return checked_; }        ///< "Checked 14:32"

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::status); }

private:
    void update();

    GadgetListModel<ProblemRow> problems_;
    GadgetListModel<ProblemRow> recent_;
    QString allUp_;
    QString consumer_;
    QString developer_;
    QString recentText_;
    QString checked_;
    bool isConsumerUp_ = false;
    bool isDeveloperUp_ = false;
    bool isDeveloperKnown_ = false;
};

}  // namespace app
