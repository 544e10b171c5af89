#pragma once

#include <QAbstractListModel>

#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Panels/TrackerLabels.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A problem of a service: one that goes on, or one of the last days.
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

/// Whether Apple's services are up, its consumers' and its developers'. The two are two files:
/// the developers' may be older than the other, and says so then.
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
    /// What was over of the last 14 days, the last begun first.
    GadgetListModel<ProblemRow>* recent() { return &recent_; }
    int problemCount() const { return problems_.rowCount(); }
    /// "All services are up", or nothing when one is not, or one half is not known.
    const QString& allUp() const { return allUp_; }
    const QString& consumer() const { return consumer_; }  ///< "58 of 59 consumer up"
    bool isConsumerUp() const { return isConsumerUp_; }
    const QString& developer() const { return developer_; }  ///< "27 of 27 developer up at 11:20"
    bool isDeveloperUp() const { return isDeveloperUp_; }
    /// As it is now, not as it was when last it could be fetched.
    bool isDeveloperKnown() const { return isDeveloperKnown_; }
    int recentCount() const { return recent_.rowCount(); }
    const QString& recentText() const { return recentText_; }  ///< "7 incidents in 14 days"
    const QString& checked() const { return checked_; }        ///< "Checked 14:32"

    void tick() override { look(); }
    void retry() override { trackers().refresh(TrackerRound::status); }

private:
    void look();
    void lookAtDevelopers();
    std::vector<ProblemRow> ongoing() const;
    std::vector<ProblemRow> over() const;
    ProblemRow rowOf(const kit::AppleServiceStatus::Report& report) const;
    QString lasted(const kit::AppleServiceStatus::Incident& incident) const;

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
