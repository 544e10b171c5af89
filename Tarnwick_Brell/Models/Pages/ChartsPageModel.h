#pragma once

#include <string>

#include <QAbstractListModel>
#include <QList>

#include "NewsroomKit/Panels/AppHistory.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Panels/TrackerLabels.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// An app's place in a chart.
struct ChartAppRow {
    Q_GADGET
    Q_PROPERTY(QString rank MEMBER rank)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString developer MEMBER developer)
    Q_PROPERTY(QString artwork MEMBER artwork)
    Q_PROPERTY(bool isApples MEMBER isApples)
    Q_PROPERTY(QList<double> curve MEMBER curve)
    Q_PROPERTY(QString change MEMBER change)
    Q_PROPERTY(app::PriceMove::Value move MEMBER move)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    std::string id{};
    QString rank{};
    QString name{};
    QString developer{};
    QString artwork{};  ///< as StoryPicture has it
    bool isApples = false;
    QList<double> curve{};  ///< of 30 days, as RankCurve has it
    QString change{};       ///< "3" places, since the last day on which the chart was seen
    PriceMove::Value move = PriceMove::Unknown;
    bool isNew = false;
    QString spokenText{};

    bool operator==(const ChartAppRow&) const = default;
};

/// A line about the selected app.
struct AppFactRow {
    Q_GADGET
    Q_PROPERTY(QString when MEMBER when)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString note MEMBER note)

public:
    QString when{};
    QString text{};
    QString note{};
    std::string id{};  ///< of another app
    kit::AppStoreCharts::Kind chart{};

    bool operator==(const AppFactRow&) const = default;
};

/// The charts of the App Store side by side, and the history of one app in them.
class ChartsPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ChartsPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* freeApps READ freeApps CONSTANT)
    Q_PROPERTY(QAbstractListModel* paidApps READ paidApps CONSTANT)
    Q_PROPERTY(QString freeFact READ freeFact NOTIFY changed)
    Q_PROPERTY(QString paidFact READ paidFact NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(bool onlyApples READ onlyApples WRITE setOnlyApples NOTIFY changed)
    Q_PROPERTY(bool hasApp READ hasApp NOTIFY changed)
    Q_PROPERTY(int selectedChart READ selectedChart NOTIFY changed)
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY changed)
    Q_PROPERTY(QString appName READ appName NOTIFY changed)
    Q_PROPERTY(QString developer READ developer NOTIFY changed)
    Q_PROPERTY(bool isApples READ isApples NOTIFY changed)
    Q_PROPERTY(bool hasLink READ hasLink NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(QList<double> curve READ curve NOTIFY changed)
    Q_PROPERTY(QList<QString> scale READ scale NOTIFY changed)
    Q_PROPERTY(QString firstDay READ firstDay NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* moves READ moves CONSTANT)
    Q_PROPERTY(QAbstractListModel* others READ others CONSTANT)

public:
    explicit ChartsPageModel(const DeskStores& stores);

    GadgetListModel<ChartAppRow>* freeApps() { return &charts_[0].rows; }
    GadgetListModel<ChartAppRow>* paidApps() { return &charts_[1].rows; }
    /// When the chart was fetched, or why it is no newer.
    const QString& freeFact() const { return charts_[0].fact; }
    const QString& paidFact() const { return charts_[1].fact; }
    const QString& words() const { return words_; }
    void setWords(const QString& words);
    bool onlyApples() const { return onlyApples_; }
    void setOnlyApples(bool only);

    // The selected app.
    bool hasApp() const { return app_.has_value(); }
    int selectedChart() const { return static_cast<int>(selectedChart_); }
    /// -1 when the filter hides it.
    int selectedRow() const;
    QString appName() const;
    QString developer() const;
    bool isApples() const { return app_ && app_->isApples; }
    bool hasLink() const { return app_ && app_->entry.url; }
    QString summary() const;
    const QList<double>& curve() const { return curve_; }  ///< of 90 days, as RankCurve has it
    QStringList scale() const;                             ///< ranks from the top to the bottom
    QString firstDay() const;
    GadgetListModel<AppFactRow>* moves() { return &moves_; }
    GadgetListModel<AppFactRow>* others() { return &others_; }
    /// "12th, Tue 3 Nov" of a place in `curve`.
    Q_INVOKABLE QString dayText(int day) const;

    Q_INVOKABLE void select(int chart, int row);
    Q_INVOKABLE void selectOther(int row);
    Q_INVOKABLE void openApp();

    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::charts); }

protected:
    bool hasBar() const override { return true; }

private:
    using Kind = kit::AppStoreCharts::Kind;
    struct ShownChart {
        GadgetListModel<ChartAppRow> rows{};
        QString fact{};
    };

    void update();
    void updateChart(Kind kind);
    void showApp();
    void selectApp(Kind chart, const std::string& id);
    kit::Instant lastDay() const;

    QString words_;
    bool onlyApples_ = false;
    std::array<ShownChart, 2> charts_;
    Kind selectedChart_ = Kind::topFree;
    std::string selectedID_;
    std::optional<kit::AppHistory> app_;
    kit::RankDays ranks_;
    QList<double> curve_;
    GadgetListModel<AppFactRow> moves_;
    GadgetListModel<AppFactRow> others_;
};

}  // namespace app
