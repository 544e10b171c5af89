#pragma once

#include <memory>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>

#include "NewsroomKit/Panels/RacesContent.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Pages/SubjectLoader.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// An outlet in the table of races.
struct RaceRow {
    Q_GADGET
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString subjects MEMBER subjects)
    Q_PROPERTY(QString led MEMBER led)
    Q_PROPERTY(QString lead MEMBER lead)
    Q_PROPERTY(bool isAhead MEMBER isAhead)
    Q_PROPERTY(QList<double> bars MEMBER bars)
    Q_PROPERTY(QList<double> shares MEMBER shares)
    Q_PROPERTY(bool isPicked MEMBER isPicked)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString outlet{};
    QString subjects{};
    QString led{};
    QString lead{};  ///< the median, "+18 min"; empty where no times are known
    bool isAhead = false;
    QList<double> bars{};    ///< RacesContent::Row::bars
    QList<double> shares{};  ///< of what it led: confirmed, on the record, report, rumor, the rest
    bool isPicked = false;
    QString spokenText{};

    bool operator==(const RaceRow&) const = default;
};

/// A subject that both picked outlets covered.
struct PairedRaceRow {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString outcome MEMBER outcome)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(bool firstLed MEMBER firstLed)
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString title{};
    QString outcome{};  ///< "Wired +14 min"
    QString detail{};   ///< "Today · stated"
    bool firstLed = false;
    QString storyID{};
    QString spokenText{};

    bool operator==(const PairedRaceRow&) const = default;
};

/// Which outlets led how often over the last days, and how two of them did against each other.
class RacesPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(RacesPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* races READ races CONSTANT)
    Q_PROPERTY(int span READ span WRITE setSpan NOTIFY changed)
    Q_PROPERTY(int sourcing READ sourcing WRITE setSourcing NOTIFY changed)
    Q_PROPERTY(QList<QString> sourcings READ sourcings CONSTANT)
    Q_PROPERTY(QString pairTitle READ pairTitle NOTIFY changed)
    Q_PROPERTY(QString score READ score NOTIFY changed)
    Q_PROPERTY(QString scoreDetail READ scoreDetail NOTIFY changed)
    Q_PROPERTY(QString medians READ medians NOTIFY changed)
    Q_PROPERTY(QString pairMessage READ pairMessage NOTIFY changed)

public:
    explicit RacesPageModel(const DeskStores& stores);

    QAbstractListModel* rows() { return &rows_; }
    QAbstractListModel* races() { return &pairedRaces_; }
    int span() const { return span_; }  ///< 0 for 7 days, 1 for 30, 2 for 90
    void setSpan(int span);
    int sourcing() const { return sourcing_; }  ///< its place in `sourcings`
    void setSourcing(int place);
    /// "Sourcing: all", then the labels.
    QStringList sourcings() const;
    const QString& pairTitle() const { return pairTitle_; }
    const QString& score() const { return score_; }
    const QString& scoreDetail() const { return scoreDetail_; }
    const QString& medians() const { return medians_; }
    /// Instead of a pair.
    QString pairMessage() const;

    /// Picks the outlet of that row, or drops it; of three the one picked first is dropped.
    Q_INVOKABLE void pick(int row);
    /// Opens the subject's first story.
    Q_INVOKABLE void openRace(int row);

    void retry() override { load(); }

protected:
    bool hasBar() const override { return true; }

private:
    void load();
    void update();
    void showPair(const kit::RacesContent& content);

    std::shared_ptr<const std::vector<kit::Race>> held_;
    bool isCut_ = false;
    int span_ = 2;
    int sourcing_ = 0;
    QStringList picked_;
    GadgetListModel<RaceRow> rows_;
    GadgetListModel<PairedRaceRow> pairedRaces_;
    QString pairTitle_;
    QString score_;
    QString scoreDetail_;
    QString medians_;
    SubjectLoader loader_;
};

}  // namespace app
